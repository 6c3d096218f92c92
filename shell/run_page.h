// The third wizard page (fr3): the run's status lines, its progress bar, and the buttons for
// the finished files: "Open folder", "Upload to Picasa", "Upload to FTP".
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

namespace velmora::shell {

class RunPage : public QWidget {
  Q_OBJECT
 public:
  explicit RunPage(QWidget* parent = nullptr);

  QLabel* lblStatus() const { return status_; }
  QLabel* lblFile() const { return file_; }
  QProgressBar* pb1() const { return progress_; }
  QPushButton* Button5() const { return open_folder_; }
  QPushButton* Button6() const { return picasa_; }
  QPushButton* Button7() const { return ftp_; }

 private:
  QLabel *status_, *file_;
  QProgressBar* progress_;
  QPushButton *open_folder_, *picasa_, *ftp_;
};

}  // namespace velmora::shell
