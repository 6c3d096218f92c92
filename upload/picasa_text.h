// Reading the web-album service's answers: the sign-in token and captcha fields, the entries of
// the album feed, element contents, the media type of a photo and the album's post path.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "upload/album_types.h"

namespace velmora::upload {

// Content of the first element whose name starts with `tag` (case ignored; attributes may
// stand in the opening tag), or "" when it is missing or not closed.
std::string TagValue(std::string_view tag, std::string_view text);

// "image/jpeg", "image/gif", "image/bmp" or "image/png" after the extension behind the last
// dot; "" for any other extension, a path without a dot, or an empty path.
std::string ContentTypeOfPath(std::string_view path);

// The token behind "Auth=" in a sign-in answer. Its length is measured from the start of
// "Auth=" to the next line feed, so it runs five characters past the line feed (or to the end)
// and keeps that line feed; only spaces are trimmed. "" without "Auth=" or a line feed behind.
std::string AuthTokenOf(std::string_view body);

// The captcha image path behind "CaptchaUrl=" up to the next line feed; "" when either is
// missing.
std::string CaptchaPathOf(std::string_view body);

// True with the text between "CaptchaToken=" and the next line feed in `token`; false (token
// untouched) when either is missing.
bool CaptchaTokenOf(std::string_view body, std::string& token);

// The texts between "<entry>" and "</entry>" (exact case), in feed order; an entry that is not
// closed ends the list.
std::vector<std::string> FeedEntries(std::string_view feed);

// One album per entry, title and id read with TagValue.
std::vector<Album> AlbumsOfFeed(std::string_view feed);

// The path photos are posted to: the album id without the service's URL prefix (plain HTTP and
// HTTPS, anywhere, case ignored) and with "/entry/" turned into "/feed/".
std::string AlbumPathOf(std::string_view album_id, std::string_view album_host);

// The words of a refused request: `message`, a blank line, the status in decimal, a line break
// and `body`.
std::string RefusalText(std::string_view message, int status, std::string_view body);

}  // namespace velmora::upload
