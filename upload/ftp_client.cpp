// The FTP session over libcurl: one easy handle driven by one multi handle, so the connection
// made by Connect carries every later command and transfer, and transfers advance only while
// the caller polls.
#include "upload/ftp_client.h"

#include <cstdio>
#include <optional>
#include <vector>

#include "upload/curl_handles.h"

namespace velmora::upload {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

constexpr int kPollMs = 100;
// A transfer that moves no byte for this long has stalled and fails.
constexpr long kStallSeconds = 60;

size_t ReadFromFile(char* buffer, size_t size, size_t count, void* file) {
  return std::fread(buffer, size, count, static_cast<std::FILE*>(file));
}

}  // namespace

bool ActiveDataConnectionsKeepTls() {
  const unsigned version = curl_version_info(CURLVERSION_NOW)->version_num;
  return version < 0x075700 || version >= 0x080000;
}

struct FtpClient::Impl {
  std::string ca_file;
  EasyHandle easy;
  MultiHandle multi;
  bool in_multi = false;
  bool connected = false;
  FtpConnection connection;
  char error_text[CURL_ERROR_SIZE] = {};
  std::string log, last_reply, last_error_xml;

  // The transfer under way.
  bool running = false;
  FileHandle file;
  std::string local_path;

  void Note(const std::string& line) {
    if (connection.KeepSessionLog) log += line + "\r\n";
  }

  static int OnDebug(CURL*, curl_infotype type, char* data, size_t size, void* self) {
    auto* impl = static_cast<Impl*>(self);
    std::string text(data, size);
    if (type == CURLINFO_HEADER_OUT) {
      if (text.rfind("PASS ", 0) == 0) text = "PASS ****\r\n";
      if (impl->connection.KeepSessionLog) impl->log += text;
    } else if (type == CURLINFO_HEADER_IN) {
      if (impl->connection.KeepSessionLog) impl->log += text;
      impl->last_reply = text.substr(0, text.find_first_of("\r\n"));
    }
    return 0;
  }

  // "ftp://host:port/" followed by `remote_path`, every byte of it escaped so that the server
  // gets the path exactly as written; empty when the host or port cannot form an address.
  std::string UrlFor(const std::string& remote_path) {
    UrlHandle url = NewUrlHandle();
    if (!url) return {};
    std::string host = connection.Hostname;
    if (host.find(':') != std::string::npos && host.front() != '[') host = "[" + host + "]";
    const std::string path = "/" + PercentEncode(remote_path);
    if (curl_url_set(url.get(), CURLUPART_SCHEME, "ftp", 0) != CURLUE_OK ||
        curl_url_set(url.get(), CURLUPART_HOST, host.c_str(), 0) != CURLUE_OK ||
        curl_url_set(url.get(), CURLUPART_PATH, path.c_str(), 0) != CURLUE_OK)
      return {};
    if (connection.Port != 0 &&
        curl_url_set(url.get(), CURLUPART_PORT, std::to_string(connection.Port).c_str(), 0) != CURLUE_OK)
      return {};
    char* text = nullptr;
    if (curl_url_get(url.get(), CURLUPART_URL, &text, 0) != CURLUE_OK || !text) return {};
    std::string result(text);
    curl_free(text);
    return result;
  }

  void SetError(const std::string& operation, const std::string& words, int code) {
    last_error_xml = "<errorLog>\r\n<operation>" + operation + "</operation>\r\n<error>" + words +
                     "</error>\r\n<code>" + std::to_string(code) + "</code>\r\n</errorLog>";
  }

  void SetError(const std::string& operation, CURLcode code) {
    std::string words = error_text[0] ? error_text : curl_easy_strerror(code);
    // An error reply of the server says more than the library's summary of it. A 421 (service
    // not available, the server closes the session) is reported by libcurl as a time-out, which
    // it is not: there the server's words stand alone.
    if (last_reply.rfind("421", 0) == 0)
      words = "server said: " + last_reply;
    else if (!last_reply.empty() && (last_reply[0] == '4' || last_reply[0] == '5'))
      words += "; server said: " + last_reply;
    SetError(operation, words, static_cast<int>(code));
  }

  bool UsesActiveMode() const { return !connection.Passive && (!connection.Secure || ActiveDataConnectionsKeepTls()); }

  // The options every request of the session shares; the rest are set per request.
  bool Configure(const std::string& url) {
    if (!easy) easy = NewEasyHandle();
    if (!multi) multi = NewMultiHandle();
    if (!easy || !multi) return false;
    CURL* h = easy.get();
    curl_easy_reset(h);
    error_text[0] = '\0';
    curl_easy_setopt(h, CURLOPT_URL, url.c_str());
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, error_text);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    ConnectWithoutProxy(h);
    curl_easy_setopt(h, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(h, CURLOPT_DEBUGFUNCTION, OnDebug);
    curl_easy_setopt(h, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(h, CURLOPT_USERNAME, connection.Username.c_str());
    curl_easy_setopt(h, CURLOPT_PASSWORD, connection.Password.c_str());
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, connection.ConnectTimeoutSeconds);
    curl_easy_setopt(h, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    if (UsesActiveMode()) curl_easy_setopt(h, CURLOPT_FTPPORT, "-");
    if (connection.Secure) {
      curl_easy_setopt(h, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
      curl_easy_setopt(h, CURLOPT_FTPSSLAUTH, static_cast<long>(CURLFTPAUTH_TLS));
    }
    if (!ca_file.empty()) curl_easy_setopt(h, CURLOPT_CAINFO, ca_file.c_str());
    return true;
  }

  bool Start() {
    if (curl_multi_add_handle(multi.get(), easy.get()) != CURLM_OK) return false;
    in_multi = true;
    return true;
  }

  void Detach() {
    if (in_multi) curl_multi_remove_handle(multi.get(), easy.get());
    in_multi = false;
  }

  // Advances the request in the multi handle; the outcome once it has ended.
  std::optional<CURLcode> Step() {
    int still_running = 0;
    curl_multi_perform(multi.get(), &still_running);
    int queued = 0;
    while (CURLMsg* message = curl_multi_info_read(multi.get(), &queued)) {
      if (message->msg == CURLMSG_DONE && message->easy_handle == easy.get()) {
        const CURLcode code = message->data.result;
        Detach();
        return code;
      }
    }
    return std::nullopt;
  }

  // Runs a request to its end without returning to the caller in between.
  CURLcode RunToEnd() {
    if (!Start()) return CURLE_FAILED_INIT;
    while (true) {
      if (const auto code = Step()) return *code;
      curl_multi_poll(multi.get(), nullptr, 0, kPollMs, nullptr);
    }
  }

  // A request on the session that sends `commands` and transfers nothing.
  CURLcode Command(const std::string& operation, const std::vector<std::string>& commands) {
    if (!Configure(UrlFor(""))) {
      SetError(operation, "the network library could not start", static_cast<int>(CURLE_FAILED_INIT));
      return CURLE_FAILED_INIT;
    }
    StringList quote;
    for (const std::string& command : commands) AppendLine(quote, command);
    curl_easy_setopt(easy.get(), CURLOPT_NOBODY, 1L);
    curl_easy_setopt(easy.get(), CURLOPT_QUOTE, quote.get());
    last_reply.clear();
    const CURLcode code = RunToEnd();
    curl_easy_setopt(easy.get(), CURLOPT_QUOTE, nullptr);
    if (code != CURLE_OK) SetError(operation, code);
    return code;
  }
};

FtpClient::FtpClient(std::string extra_ca_file) : impl_(std::make_unique<Impl>()) {
  impl_->ca_file = std::move(extra_ca_file);
}

FtpClient::~FtpClient() {
  AsyncAbort();
  Disconnect();
}

bool FtpClient::Connect(const FtpConnection& connection) {
  AsyncAbort();
  Disconnect();
  impl_->connection = connection;
  if (impl_->UrlFor("").empty()) {
    const std::string words =
        "Not a host name and port to connect to: " + connection.Hostname + " port " + std::to_string(connection.Port);
    impl_->SetError("Connect", words, static_cast<int>(CURLE_URL_MALFORMAT));
    impl_->Note("* " + words);
    return false;
  }
  if (!connection.Passive && !impl_->UsesActiveMode())
    impl_->Note("* This libcurl (" + std::string(curl_version_info(CURLVERSION_NOW)->version) +
                ") cannot protect an active data connection; data connections are opened passively, under TLS");
  impl_->connected = impl_->Command("Connect", {}) == CURLE_OK;
  return impl_->connected;
}

bool FtpClient::SetBinaryMode() {
  if (!impl_->connected) {
    impl_->SetError("SetBinaryMode", "Not connected", static_cast<int>(CURLE_FAILED_INIT));
    return false;
  }
  return impl_->Command("SetBinaryMode", {"TYPE I"}) == CURLE_OK;
}

bool FtpClient::AsyncPutFileStart(const std::string& local_path, const std::string& remote_path) {
  Impl& s = *impl_;
  if (s.running) return false;
  if (!s.connected) {
    s.Note("* Not connected: " + local_path + " not sent");
    return false;
  }
  FileHandle file(std::fopen(local_path.c_str(), "rb"));
  if (!file) {
    s.Note("* Cannot read " + local_path);
    return false;
  }
  std::fseek(file.get(), 0, SEEK_END);
  const long size = std::ftell(file.get());
  std::fseek(file.get(), 0, SEEK_SET);
  if (!s.Configure(s.UrlFor(remote_path))) return false;
  CURL* h = s.easy.get();
  curl_easy_setopt(h, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(h, CURLOPT_READFUNCTION, ReadFromFile);
  curl_easy_setopt(h, CURLOPT_READDATA, file.get());
  if (size >= 0) curl_easy_setopt(h, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(size));
  curl_easy_setopt(h, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(h, CURLOPT_LOW_SPEED_TIME, kStallSeconds);
  s.Note("* Sending " + local_path + " to " + remote_path);
  if (!s.Start()) return false;
  s.file = std::move(file);
  s.local_path = local_path;
  s.running = true;
  if (OnBeginUploadFile) OnBeginUploadFile(local_path);
  return true;
}

bool FtpClient::AsyncFinished() {
  Impl& s = *impl_;
  if (!s.running) return true;
  const auto code = s.Step();
  if (!code) return false;
  s.running = false;
  s.file.reset();
  if (*code == CURLE_OK) {
    curl_off_t bytes = 0;
    curl_easy_getinfo(s.easy.get(), CURLINFO_SIZE_UPLOAD_T, &bytes);
    s.Note("* Sent " + s.local_path + ", " + std::to_string(bytes) + " bytes");
    if (OnEndUploadFile) OnEndUploadFile(s.local_path, static_cast<std::int64_t>(bytes));
  } else {
    s.SetError("PutFile", *code);
    s.Note("* Failed to send " + s.local_path + ": " + (s.error_text[0] ? s.error_text : curl_easy_strerror(*code)));
  }
  return true;
}

void FtpClient::SleepMs(int milliseconds) {
  if (impl_->multi) curl_multi_poll(impl_->multi.get(), nullptr, 0, milliseconds, nullptr);
}

void FtpClient::AsyncAbort() {
  Impl& s = *impl_;
  if (!s.running) return;
  s.Detach();
  s.running = false;
  s.file.reset();
  s.Note("* Transfer of " + s.local_path + " aborted");
}

void FtpClient::Disconnect() {
  Impl& s = *impl_;
  AsyncAbort();
  s.Detach();
  // Dropping the multi handle closes the connections it holds, with a QUIT to the server.
  s.multi.reset();
  s.connected = false;
}

bool FtpClient::IsConnected() const {
  return impl_->connected;
}

std::string FtpClient::SessionLog() const {
  return impl_->log;
}

std::string FtpClient::LastErrorXml() const {
  return impl_->last_error_xml;
}

}  // namespace velmora::upload
