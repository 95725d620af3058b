// Loads the shared library as a host loads a package; nothing of it is linked in here.
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

TEST(PackageUnload, TheLibraryIsReallyUnloadedAndLeavesNothing) {
  void* const library = dlopen(QXTOOLS_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  using Routine = void (*)();
  const auto initialize = reinterpret_cast<Routine>(dlsym(library, "_ZN7qxTools10InitializeEv"));
  const auto finalize = reinterpret_cast<Routine>(dlsym(library, "_ZN7qxTools8FinalizeEv"));
  const auto sql = reinterpret_cast<void* (*)()>(dlsym(library, "_ZN7qxTools10QXSqlTools3SQLEv"));
  ASSERT_TRUE(initialize != nullptr && finalize != nullptr && sql != nullptr);
  initialize();
  EXPECT_NE(sql(), nullptr);  // the shared command goes with the library; the leak checker watches
  finalize();
  EXPECT_EQ(dlclose(library), 0);
  EXPECT_EQ(dlopen(QXTOOLS_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

}  // namespace
