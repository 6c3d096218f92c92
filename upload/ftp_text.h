// The text rules of the FTP upload: the host name as the connection takes it, the error text
// shown to the user, the remote path of a file and the port taken from the settings.
#pragma once

#include <string>
#include <string_view>

namespace velmora::upload {

// `host` without a leading "ftp:" scheme prefix (any case) and the slashes behind it. A host
// that is nothing but the prefix and slashes, or has no prefix, comes back unchanged.
std::string CheckFTP(std::string_view host);

// The text of the first <error> element of an error report; the whole report when it holds no
// complete element.
std::string MsgErr(std::string_view xml);

// Where a local file goes: `ftp_path`, "/", then the file's name. The folder is taken as it
// stands, so a trailing slash gives a double slash.
std::string FtpRemotePath(std::string_view ftp_path, std::string_view local_path);

// The port named by the setting: its leading number, rounded; 0 (meaning "the default port")
// when the text starts with no number or the number does not fit a port variable.
int FtpPortValue(std::string_view ftp_port);

}  // namespace velmora::upload
