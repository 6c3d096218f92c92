// Where the account, web-album and maker's services live. The defaults are fixed when the
// program is built; a caller (the tests, another deployment) may give other hosts and ports.
#pragma once

#include <string>

namespace velmora::upload {

struct ServiceHosts {
  std::string AccountHost;  // sign-in over HTTPS, captcha images over plain HTTP
  int AccountHttpsPort = 443;
  int AccountHttpPort = 80;
  std::string AlbumHost;  // album feed and photo posts, plain HTTP
  int AlbumPort = 80;
  std::string MakerHost;  // version file and setup package, plain HTTP
  int MakerPort = 80;
  // A certificate authority file to trust instead of the default bundle; "" for the default.
  std::string ExtraCaFile;
};

// The hosts the build was made for, on the protocols' standard ports.
ServiceHosts DefaultServiceHosts();

// "scheme://host[:port]" with the port left out when it is the scheme's standard one.
std::string BaseUrl(const std::string& scheme, const std::string& host, int port);

}  // namespace velmora::upload
