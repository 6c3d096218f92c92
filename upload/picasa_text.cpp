// Text rules of the web-album sign-in, feed and photo posts.
#include "upload/picasa_text.h"

#include "upload/text_search.h"

namespace velmora::upload {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

// Text from just behind `key` to the next line feed, when both are found.
bool FieldUpToLineFeed(std::string_view body, std::string_view key, std::string& value) {
  const std::size_t at = FindIgnoreCase(body, key);
  if (at == kNpos) return false;
  const std::size_t line_feed = body.find('\n', at);
  if (line_feed == kNpos) return false;
  const std::size_t start = at + key.size();
  value = line_feed > start ? std::string(body.substr(start, line_feed - start)) : std::string();
  return true;
}

}  // namespace

std::string TagValue(std::string_view tag, std::string_view text) {
  const std::size_t open = FindIgnoreCase(text, "<" + std::string(tag));
  if (open == kNpos) return {};
  const std::size_t open_end = text.find('>', open + tag.size() + 1);
  if (open_end == kNpos) return {};
  const std::size_t close = FindIgnoreCase(text, "</" + std::string(tag) + ">", open_end + 1);
  if (close == kNpos) return {};
  return std::string(text.substr(open_end + 1, close - open_end - 1));
}

std::string ContentTypeOfPath(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  if (path.empty() || dot == kNpos) return {};
  const std::string extension = LowerAscii(TrimBlanks(path.substr(dot + 1)));
  if (extension == "jpeg" || extension == "jpg") return "image/jpeg";
  if (extension == "gif") return "image/gif";
  if (extension == "bmp") return "image/bmp";
  if (extension == "png") return "image/png";
  return {};
}

std::string AuthTokenOf(std::string_view body) {
  const std::size_t at = FindIgnoreCase(body, "Auth=");
  if (at == kNpos) return {};
  const std::size_t line_feed = body.find('\n', at + 1);
  if (line_feed == kNpos) return {};
  return TrimBlanks(SafeSub(body, at + 5, line_feed - at));
}

std::string CaptchaPathOf(std::string_view body) {
  std::string path;
  FieldUpToLineFeed(body, "CaptchaUrl=", path);
  return path;
}

bool CaptchaTokenOf(std::string_view body, std::string& token) {
  return FieldUpToLineFeed(body, "CaptchaToken=", token);
}

std::vector<std::string> FeedEntries(std::string_view feed) {
  constexpr std::string_view kOpen = "<entry>", kClose = "</entry>";
  std::vector<std::string> entries;
  std::size_t from = 0;
  while (true) {
    const std::size_t open = feed.find(kOpen, from);
    if (open == kNpos) break;
    const std::size_t close = feed.find(kClose, open + kOpen.size());
    if (close == kNpos) break;
    entries.emplace_back(feed.substr(open + kOpen.size(), close - open - kOpen.size()));
    from = close + kClose.size();
  }
  return entries;
}

std::vector<Album> AlbumsOfFeed(std::string_view feed) {
  std::vector<Album> albums;
  for (const std::string& entry : FeedEntries(feed))
    albums.push_back({TagValue("id", entry), TagValue("title", entry)});
  return albums;
}

std::string AlbumPathOf(std::string_view album_id, std::string_view album_host) {
  std::string path = ReplaceAllIgnoreCase(album_id, "http://" + std::string(album_host), "");
  path = ReplaceAllIgnoreCase(path, "https://" + std::string(album_host), "");
  return ReplaceAllIgnoreCase(path, "/entry/", "/feed/");
}

std::string RefusalText(std::string_view message, int status, std::string_view body) {
  return std::string(message) + "\r\n\r\n" + std::to_string(status) + "\r\n" + std::string(body);
}

}  // namespace velmora::upload
