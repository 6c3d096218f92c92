// The windows of the uploads: "Choose Picasa Album" (Form4), "Enter Captcha Code" (Form5), the
// hidden "Process log" (Form6) and the FTP session "Log" (Form7). Each is owned by the main
// window and shown without blocking it; a command waits for one by watching its flag.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <string>
#include <vector>

#include "shell/dialog_frame.h"
#include "shell/panels/select_all_edit.h"
#include "upload/album_types.h"

namespace velmora::shell {

// Form4: the albums by title, each row holding the album's id.
class AlbumChooser : public DialogFrame {
  Q_OBJECT
 public:
  explicit AlbumChooser(QWidget* owner);
  void Open(const std::vector<upload::Album>& albums);
  bool Showed() const { return showed_; }                  // Form4Showed
  const std::string& ExitString() const { return exit_; }  // Form4ExitString
  QListWidget* lw1() const { return list_; }
  QPushButton* Command1() const { return ok_; }

 protected:
  void done(int result) override;

 private:
  QListWidget* list_;
  QPushButton *ok_, *cancel_;
  bool showed_ = false;
  std::string exit_;
};

// Form5: the captcha picture and the code the user reads from it.
class CaptchaPrompt : public DialogFrame {
  Q_OBJECT
 public:
  explicit CaptchaPrompt(QWidget* owner);
  void Open(const std::string& image_path);
  bool Showed() const { return showed_; }                  // Form5Showed
  const std::string& ExitString() const { return exit_; }  // Form5ExitString
  SelectAllEdit* Text1() const { return text_; }
  QPushButton* Command1() const { return ok_; }

 protected:
  void done(int result) override;

 private:
  QLabel* picture_;
  SelectAllEdit* text_;
  QPushButton *ok_, *cancel_;
  bool showed_ = false;
  std::string exit_;
};

// Form7: the FTP session's log in a text box that selects all of itself on focus.
class SessionLogWindow : public DialogFrame {
  Q_OBJECT
 public:
  explicit SessionLogWindow(QWidget* owner);
  void Open(const std::string& log);
  QPlainTextEdit* Text1() const { return text_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPlainTextEdit* text_;
};

// Form6: loaded but never shown; the FTP transfer writes its status here, and its "Stop" would
// end the upload.
class ProcessLogWindow : public QWidget {
  Q_OBJECT
 public:
  explicit ProcessLogWindow(QWidget* owner);
  QLabel* lblStatus() const { return status_; }

 signals:
  void stopClicked();

 private:
  QLabel *status_, *file_;
  QProgressBar* progress_;
};

}  // namespace velmora::shell
