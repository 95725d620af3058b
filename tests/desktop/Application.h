#pragma once

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

namespace qxTools::test {

/// An application object that needs no arguments.
template <class Kind = QApplication>
class Application {
 private:
  int count_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  Kind application_{count_, arguments_};
};

/// Tests that run in a program with an application object.
class WithApplication : public testing::Test {
 private:
  Application<> application_;
};

}  // namespace qxTools::test
