// One QApplication on the offscreen platform for every test of a program that includes this,
// made before the first test and gone before the program's static objects.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <memory>

namespace velmora::testing {

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (QApplication::instance()) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static int argc = 1;
    static char name[] = "velmora-tests";
    static char* argv[] = {name, nullptr};
    app_ = std::make_unique<QApplication>(argc, argv);
  }
  // Before the program's static objects go, while Qt's own still stand.
  void TearDown() override { app_.reset(); }

 private:
  std::unique_ptr<QApplication> app_;
};

inline ::testing::Environment* const kQtEnvironment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace velmora::testing
