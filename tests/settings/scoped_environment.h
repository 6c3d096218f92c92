// Test helper: sets or removes environment variables for one test and restores them afterwards,
// so that start-up can be pointed at a temporary home folder.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora::testing {

class ScopedEnvironment {
 public:
  ScopedEnvironment() = default;
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
  ~ScopedEnvironment() {
    for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
      if (it->second) {
        ::setenv(it->first.c_str(), it->second->c_str(), 1);
      } else {
        ::unsetenv(it->first.c_str());
      }
    }
  }
  void Set(const std::string& name, const std::string& value) {
    Remember(name);
    ::setenv(name.c_str(), value.c_str(), 1);
  }
  void Unset(const std::string& name) {
    Remember(name);
    ::unsetenv(name.c_str());
  }

 private:
  void Remember(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    saved_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
  }
  std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

}  // namespace velmora::testing
