// A plain binary form for the values that pass between the run and its worker processes, and
// length-prefixed messages over pipes. Both ends are the same program version on one machine.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmora::engine {

class WireWriter {
 public:
  template <typename T>
  requires std::is_arithmetic_v<T>
  void operator()(const T& value) { bytes_.append(reinterpret_cast<const char*>(&value), sizeof value); }
  void operator()(const std::string& text) { Bytes(text.data(), text.size()); }
  void operator()(const std::vector<std::uint8_t>& data) { Bytes(data.data(), data.size()); }

  // The message written so far, handed over without a copy; the writer is left empty.
  std::string TakeBytes() { return std::move(bytes_); }

 private:
  void Bytes(const void* data, std::size_t size) {
    (*this)(static_cast<std::uint64_t>(size));
    bytes_.append(static_cast<const char*>(data), size);
  }
  std::string bytes_;
};

// Reads what a WireWriter wrote; past the end or on a length that cannot be, it reads zeros and
// empties and remembers that it failed.
class WireReader {
 public:
  explicit WireReader(std::string_view bytes) : rest_(bytes) {}

  template <typename T>
  requires std::is_arithmetic_v<T>
  void operator()(T& value) {
    value = T{};
    if (!Take(sizeof value)) return;
    std::memcpy(&value, rest_.data() - sizeof value, sizeof value);
  }
  void operator()(std::string& text) {
    const std::string_view data = Sized();
    text.assign(data.data(), data.size());
  }
  void operator()(std::vector<std::uint8_t>& data) {
    const std::string_view raw = Sized();
    data.assign(raw.begin(), raw.end());
  }

  bool failed() const { return failed_; }
  bool at_end() const { return rest_.empty(); }

 private:
  bool Take(std::size_t size) {
    if (failed_ || size > rest_.size()) {
      failed_ = true;
      return false;
    }
    rest_.remove_prefix(size);
    return true;
  }
  std::string_view Sized() {
    std::uint64_t size = 0;
    (*this)(size);
    const char* start = rest_.data();
    if (!Take(size)) return {};
    return {start, static_cast<std::size_t>(size)};
  }
  std::string_view rest_;
  bool failed_ = false;
};

// One message: its length, then its bytes. False when the pipe broke or closed.
bool SendMessage(int fd, std::string_view payload);
// False at the end of the stream or on a broken one.
bool ReceiveMessage(int fd, std::string& payload);

}  // namespace velmora::engine
