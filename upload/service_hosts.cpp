// The build's service hosts and the URLs made from them.
#include "upload/service_hosts.h"

#ifndef VELMORA_ACCOUNT_HOST
#define VELMORA_ACCOUNT_HOST "www.google.com"
#endif
#ifndef VELMORA_ALBUM_HOST
#define VELMORA_ALBUM_HOST "picasaweb.google.com"
#endif
#ifndef VELMORA_MAKER_HOST
#define VELMORA_MAKER_HOST "www.brondale.com"
#endif

namespace velmora::upload {

ServiceHosts DefaultServiceHosts() {
  ServiceHosts hosts;
  hosts.AccountHost = VELMORA_ACCOUNT_HOST;
  hosts.AlbumHost = VELMORA_ALBUM_HOST;
  hosts.MakerHost = VELMORA_MAKER_HOST;
  return hosts;
}

std::string BaseUrl(const std::string& scheme, const std::string& host, int port) {
  const bool standard = (scheme == "http" && port == 80) || (scheme == "https" && port == 443);
  std::string url = scheme + "://";
  url += (host.find(':') != std::string::npos && host.front() != '[') ? "[" + host + "]" : host;
  if (!standard) url += ":" + std::to_string(port);
  return url;
}

}  // namespace velmora::upload
