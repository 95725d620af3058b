// Part of every test: tests run in the locale of the environment, as host applications do.
#include <clocale>

namespace {

[[maybe_unused]] const char* const locale = std::setlocale(LC_ALL, "");

}  // namespace
