// The main window (Form1): the three wizard pages, the preview pane, the bottom bar and the
// header pictures; the conversion's view while a run goes, and the preview's host.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/button.h"
#include "engine/app_state.h"
#include "engine/run_view.h"
#include "engine/worker_processes.h"
#include "preview/marshalled_view.h"
#include "preview/preview_pane.h"
#include "preview/preview_pass.h"
#include "preview/preview_worker.h"
#include "shell/clickable_label.h"
#include "shell/operation_entries.h"
#include "shell/operations_page.h"
#include "shell/profile_binding.h"
#include "shell/run_page.h"
#include "shell/shell_services.h"
#include "shell/source_page.h"
#include "shell/wizard_state.h"

namespace velmora::shell {

class SettingsDialog;
class FormatDialog;
class NewOperationDialog;
class AboutDialog;
class UploadBridge;

class MainWindow : public QWidget, public engine::RunView, public preview::PreviewHost {
  Q_OBJECT
 public:
  // Form_Load. `end_process` ends the program at the close of the window.
  MainWindow(engine::AppState& state, ShellServices& services, std::function<void()> end_process,
             QWidget* parent = nullptr);
  ~MainWindow() override;

  engine::AppState& state() { return state_; }
  WizardState& wizard() { return wizard_; }
  OperationEntries& entries() { return entries_; }
  FixedControls& fixed() { return fixed_; }
  preview::PreviewPassState& pass() { return pass_; }
  ShellServices& services() { return services_; }

  // Pages and controls, by their names in the window.
  SourcePage* fr1() const { return fr1_; }
  OperationsPage* fr2() const { return fr2_; }
  RunPage* fr3() const { return fr3_; }
  preview::PreviewPane* frPreview() const { return frPreview_; }
  SourceListWidget* lwSrc() const { return fr1_->lwSrc(); }
  OperationListView* operationList() const { return fr2_->list(); }
  controls::Button* Command1() const { return back_; }
  controls::Button* Command2() const { return next_; }
  controls::Button* Command4() const { return settings_; }
  ClickableLabel* Picture5() const { return about_picture_; }
  ClickableLabel* Picture6() const { return profile_picture_; }
  QMenu* m_profile() const { return profile_menu_; }
  QMenu* m_filename() const { return file_name_menu_; }
  QTimer* Timer1() const { return timer1_; }
  QTimer* Timer2() const { return timer2_; }
  preview::PreviewWorker* pThread() const { return worker_; }
  SettingsDialog* Form3() const { return settings_dialog_; }
  FormatDialog* Form8() const { return format_dialog_; }
  NewOperationDialog* Form9() const { return new_operation_dialog_; }
  AboutDialog* Form2() const { return about_dialog_; }

  // Wizard and layout.
  void UpdateWizard();
  void Form_Resize();
  void SetCaption(const std::string& caption);

  // Window and state.
  void ApplyProfile();
  void RefreshProfile();

  // Source list commands.
  void AddImages();  // Button1
  void AddFolder();  // Button2
  // Files and folders named on the command line ("Open with"): each file as "Add Images" takes it,
  // each folder as "Add Folder" scans it, in the order given.
  void AddCommandLineSources(const std::vector<std::string>& paths);
  void RemoveSelected();    // Button3
  void RemoveAllSources();  // Button4
  void DropFiles(const std::vector<std::string>& paths);
  void SourceItemClicked();
  void Timer1_Timer();

  // Operation list commands.
  void lblProcess_Click(std::int16_t kind);
  void StructRemove_Click(int index);
  void RemoveAllOperationsCommand();  // Button9
  void ElemCommandWatermark_Click(int index);
  void AppendFileNameToken(int item);  // m_filename_i
  void BrowseOutputFolder();           // SaveToCommand5

  // Profile menu.
  void NewProfileCommand();
  void LoadProfileCommand();
  void SaveProfileCommand();

  // Dialogs.
  void ShowSettingsDialog(int tab = 1);
  void ShowFormatDialog();
  void ShowNewOperationDialog();
  void ShowAboutDialog();

  // Run page.
  void OpenOutputFolder();  // Button5
  void UploadToPicasa();    // Button6
  void UploadToFtp();       // Button7
  UploadBridge* uploads() const;

  // Preview.
  void Timer2_Timer();
  void PreviewNow2();                      // on this thread, as at start-up
  void UpdatePreview() { PreviewNow2(); }  // part of the window's interface; nothing calls it
  void ShowPreviewPane(bool shown);
  void PreviewResultClicked();
  void PreviewSourceClicked();
  // Waits for a running preview worker and takes its results.
  void WaitForPreview();

  // engine::RunView: the real run's outputs.
  void SetStatus(const std::string& text) override;
  void SetFile(const std::string& text) override;
  void SetProgressRange(int minimum, int maximum) override;
  void SetProgressValue(int value) override;
  void ShowWait(bool shown) override;
  void SetWaitLabel(const std::string& text) override;
  void PreviewFrameSize(int& width, int& height) override;
  void ShowPreview(const imaging::DisplayPicture& picture, int top, int left) override;
  void OpenFolder(const std::string& folder) override;
  void Yield() override;
  void LogFailure(const std::string& message) override;
  const std::vector<std::string>& RunLog() const { return run_log_; }

  // preview::PreviewHost.
  bool PreviewPaneVisible() override;
  bool RunPageVisible() override;
  void ProcessEvents() override;
  std::string SelectedSourceText() override;
  void StartPreviewThread() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  // Tab and Shift+Tab walk the window in reading order.
  bool focusNextPrevChild(bool next) override;

 private:
  // Scans `folder` and its subfolders into the source list, as "Add Folder" does.
  void AddFolderContents(const std::string& folder);
  // After files were added: the last row selected when none is, the focus on the list, a preview.
  void FinishAdding();
  // Cuts a chain longer than the operation list holds, and tells the user so.
  void CutChainToWhatTheListHolds();
  void BuildWindow();
  void BuildMenus();
  void ConnectCommands();
  // Keys for the commands of the skinned buttons, which take no Enter or Space, and a few more.
  void BuildShortcuts();
  void GoBack();
  void GoNext();
  void RunConversion();
  void FinishPreview();

  engine::AppState& state_;
  ShellServices& services_;
  std::function<void()> end_process_;
  WizardState wizard_;
  OperationEntries entries_;
  FixedControls fixed_;
  preview::PreviewPassState pass_;
  std::vector<std::string> run_log_;
  bool running_ = false;
  // Runs and previews read sources in worker processes when velmora-worker is there to start.
  engine::WorkerLimits workers_{engine::FindWorkerProgram()};

  QWidget* header_ = nullptr;
  ClickableLabel* about_picture_ = nullptr;
  ClickableLabel* profile_picture_ = nullptr;
  SourcePage* fr1_ = nullptr;
  OperationsPage* fr2_ = nullptr;
  RunPage* fr3_ = nullptr;
  preview::PreviewPane* frPreview_ = nullptr;
  QWidget* Picture1_ = nullptr;
  controls::Button* back_ = nullptr;
  controls::Button* next_ = nullptr;
  controls::Button* settings_ = nullptr;
  QMenu* profile_menu_ = nullptr;
  QMenu* file_name_menu_ = nullptr;
  QTimer* timer1_ = nullptr;
  QTimer* timer2_ = nullptr;
  preview::PreviewWorker* worker_ = nullptr;
  preview::PreviewSignals* preview_signals_ = nullptr;
  std::shared_ptr<engine::AppState> preview_state_;
  SettingsDialog* settings_dialog_ = nullptr;
  FormatDialog* format_dialog_ = nullptr;
  NewOperationDialog* new_operation_dialog_ = nullptr;
  AboutDialog* about_dialog_ = nullptr;
  UploadBridge* uploads_ = nullptr;
};

}  // namespace velmora::shell
