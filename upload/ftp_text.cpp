// Host, error, path and port text of the FTP upload.
#include "upload/ftp_text.h"

#include <limits>

#include "engine/number_text.h"
#include "upload/text_search.h"

namespace velmora::upload {

std::string CheckFTP(std::string_view host) {
  if (host.size() < 4 || LowerAscii(host.substr(0, 4)) != "ftp:") return std::string(host);
  const std::size_t rest = host.find_first_not_of('/', 4);
  if (rest == std::string_view::npos) return std::string(host);
  return std::string(host.substr(rest));
}

std::string MsgErr(std::string_view xml) {
  const std::size_t open = FindIgnoreCase(xml, "<error>");
  if (open == std::string_view::npos) return std::string(xml);
  const std::size_t close = FindIgnoreCase(xml, "</error>", open + 3);
  if (close == std::string_view::npos) return std::string(xml);
  const std::size_t start = open + 7;
  return close > start ? std::string(xml.substr(start, close - start)) : std::string();
}

std::string FtpRemotePath(std::string_view ftp_path, std::string_view local_path) {
  return std::string(ftp_path) + "/" + FileNameOfPath(local_path);
}

int FtpPortValue(std::string_view ftp_port) {
  const double value = engine::LeadingNumber(ftp_port);
  if (!(value > std::numeric_limits<int>::min() && value < std::numeric_limits<int>::max())) return 0;
  return static_cast<int>(engine::RoundHalfEven(value));
}

}  // namespace velmora::upload
