// One-time libcurl initialisation and the handle factories.
#include "upload/curl_handles.h"

#include <mutex>

namespace velmora::upload {
namespace {

void InitialiseOnce() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

}  // namespace

EasyHandle NewEasyHandle() {
  InitialiseOnce();
  return EasyHandle(curl_easy_init());
}

MultiHandle NewMultiHandle() {
  InitialiseOnce();
  return MultiHandle(curl_multi_init());
}

UrlHandle NewUrlHandle() {
  InitialiseOnce();
  return UrlHandle(curl_url());
}

void ConnectWithoutProxy(CURL* handle) {
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
}

void AppendLine(StringList& list, const std::string& line) {
  if (curl_slist* grown = curl_slist_append(list.get(), line.c_str())) {
    (void)list.release();
    list.reset(grown);
  }
}

std::string PercentEncode(const std::string& text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string encoded;
  for (unsigned char c : text) {
    const bool unreserved = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
                            c == '.' || c == '_' || c == '~';
    if (unreserved) {
      encoded += static_cast<char>(c);
    } else {
      encoded += '%';
      encoded += kHex[c >> 4];
      encoded += kHex[c & 15];
    }
  }
  return encoded;
}

}  // namespace velmora::upload
