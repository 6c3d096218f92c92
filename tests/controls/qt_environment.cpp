// Every controls test runs inside one offscreen QApplication, made before the first test.
#include <gtest/gtest.h>

#include <QApplication>

namespace {

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "test_controls";
    static char* argv[] = {name, nullptr};
    app_ = new QApplication(argc, argv);
  }
  void TearDown() override {
    delete app_;
    app_ = nullptr;
  }

 private:
  QApplication* app_ = nullptr;
};

[[maybe_unused]] ::testing::Environment* const kQtEnvironment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
