// The run page's upload buttons and the about box's update check, joined to the upload
// commands. Without an upload library in the build the buttons stay disabled.
#pragma once

#include <QObject>

namespace velmora::shell {

class MainWindow;

class UploadBridge : public QObject {
  Q_OBJECT
 public:
  explicit UploadBridge(MainWindow* window);
  ~UploadBridge() override;

  bool Available() const;
  void Picasa();        // Button6
  void Ftp();           // Button7
  void CheckUpdates();  // the about box's "Check for updates"

 private:
  MainWindow* window_;
};

}  // namespace velmora::shell
