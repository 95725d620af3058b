// Errors: each derives from Exception, and its text says what was wrong. Some functions return a code
// instead.
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/stores/qxIniTools.h>

#include <iostream>

using namespace qxTools;

namespace {

/// Runs `work` as the outermost function of a program would; the special cases come before the general one.
template <class Work>
void Try(const char* what, Work work) {
  try {
    work();
    std::cout << what << ": done\n";
  } catch (const qxIniTools::EIniLoadError& e) {
    std::cout << what << ": line " << e.GetLine() << ": " << e.what() << "\n";
  } catch (const EConvertError& e) {
    std::cout << what << ": not readable: " << e.what() << "\n";
  } catch (const EFOpenError& e) {
    std::cout << what << ": no file: " << e.what() << "\n";
  } catch (const Exception& e) {  // every other error of the library; std::bad_alloc is not one
    std::cout << what << ": " << e.what() << "\n";
  }
}

}  // namespace

int main() {
  Try("date", [] { StrToDate("2024/02/30"); });
  Try("file", [] { TFileStream("no/such/file", fmOpenRead); });
  Try("settings", [] { qxIniTools::TQXIniFile().SetText("\r\n[%\r\n"); });
  Try("list", [] { TStringList().GetStrings(7); });

  // Without an exception:
  TDateTime date = 0;
  std::cout << QXDateTools::StrToDateEx(date, "2024/02/30") << " is " << QXDateTools::kBadDay << "\n";
}
