// Every test program takes the locale its environment names, as the window does at start, so
// that a run under LC_ALL=de_DE.UTF-8 reads numbers where a comma is the decimal mark.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace velmora::testing {
namespace {

class FollowTheEnvironmentLocale : public ::testing::Environment {
 public:
  void SetUp() override {
    const char* asked = std::getenv("LC_ALL");
    if (!std::setlocale(LC_ALL, "") && asked && *asked)
      FAIL() << "locale " << asked << " is not installed (scripts/install-deps generates it)";
  }
};

const auto* const kLocale = ::testing::AddGlobalTestEnvironment(new FollowTheEnvironmentLocale);

}  // namespace
}  // namespace velmora::testing
