// QFileDialog, QFontDialog, QColorDialog and QDesktopServices behind ShellServices.
#include "shell/qt_shell_services.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QMessageBox>
#include <QUrl>

#include "preview/viewer_launch.h"
#include "shell/source_rules.h"

namespace velmora::shell {
namespace {

std::vector<std::pair<std::string, std::string>> SourceFilters() {
  std::vector<std::pair<std::string, std::string>> filters;
  for (const FileFilter& filter : SourceImageFilters()) filters.emplace_back(filter.name, filter.patterns);
  return filters;
}

std::string Chosen(const QString& path) {
  return QDir::fromNativeSeparators(path).toStdString();
}

}  // namespace

QString QtFilterList(const std::vector<std::pair<std::string, std::string>>& filters) {
  QStringList list;
  for (const auto& [name, patterns] : filters) {
    QString shown = QString::fromStdString(patterns);
    shown.replace(';', ' ');
    list << QStringLiteral("%1 (%2)").arg(QString::fromStdString(name), shown);
  }
  return list.join(QStringLiteral(";;"));
}

std::vector<std::string> QtShellServices::ChooseSourceFiles(QWidget* owner) {
  const QStringList files = QFileDialog::getOpenFileNames(owner, QStringLiteral("Choose file..."), QDir::currentPath(),
                                                          QtFilterList(SourceFilters()));
  std::vector<std::string> paths;
  for (const QString& file : files) paths.push_back(Chosen(file));
  return paths;
}

std::string QtShellServices::ChooseFolder(QWidget* owner) {
  return Chosen(QFileDialog::getExistingDirectory(owner, QString(), QString(), QFileDialog::ShowDirsOnly));
}

std::string QtShellServices::ChooseProfile(QWidget* owner, const std::string& folder) {
  QFileDialog dialog(owner, QStringLiteral("Choose file"), QString::fromStdString(folder),
                     QStringLiteral("Velmora Profiles (*.profile)"));
  // Open and save share this dialog: a name that doesn't exist yet may be typed, and nothing asks
  // before a file is overwritten.
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return Chosen(dialog.selectedFiles().front());
}

std::string QtShellServices::ChooseWatermarkImage(QWidget* owner) {
  std::vector<std::pair<std::string, std::string>> filters{
      {"All Image Files", "*.jpg;*.jpeg;*.gif;*.png;*.tif;*.tiff;*.bmp;*.dib;*.wmf;*.emf;*.heic;*.heif;*.avif;*.webp"}};
  const auto& rows = SourceImageFilters();
  for (std::size_t i = 1; i < rows.size(); ++i) filters.emplace_back(rows[i].name, rows[i].patterns);
  return Chosen(QFileDialog::getOpenFileName(owner, QStringLiteral("Open file"), QString(), QtFilterList(filters)));
}

void QtShellServices::Inform(QWidget* owner, const std::string& text) {
  QMessageBox::information(owner, QString(), QString::fromStdString(text), QMessageBox::Ok);
}

void QtShellServices::OpenFolder(const std::string& folder) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(folder)));
}

void QtShellServices::OpenUrl(const std::string& url) {
  QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

void QtShellServices::LaunchViewer(const std::string& path) {
  preview::LaunchViewer(QCoreApplication::applicationDirPath(), path);
}

std::optional<FontAnswer> QtShellServices::ChooseFont(const FontRequest& request) {
  QFont start(QString::fromStdString(request.face));
  // The chooser works in points; the request's tenths carry the size.
  if (request.tenths > 0) start.setPointSizeF(request.tenths / 10.0);
  start.setWeight(request.weight >= 700 ? QFont::Bold : QFont::Normal);
  start.setItalic(request.italic);
  start.setUnderline(request.underline);
  start.setStrikeOut(request.strikeout);
  bool ok = false;
  const QFont font = QFontDialog::getFont(&ok, start, font_owner_, QString(), QFontDialog::ScalableFonts);
  if (!ok) return std::nullopt;
  // The effects colour of the system chooser: it starts from black, not from the stored colour.
  // The font is already confirmed, so a cancel here keeps the old colour and nothing else.
  const QColor color = QColorDialog::getColor(Qt::black, font_owner_);
  FontAnswer answer;
  answer.face = QFontInfo(font).family().toStdString();
  answer.tenths = static_cast<std::int32_t>(font.pointSizeF() * 10.0 + 0.5);
  answer.color = color.isValid() ? color.red() | (color.green() << 8) | (color.blue() << 16) : request.color;
  answer.bold = font.weight() >= QFont::Bold;
  answer.italic = font.italic();
  answer.underline = font.underline();
  answer.strikeout = font.strikeOut();
  return answer;
}

}  // namespace velmora::shell
