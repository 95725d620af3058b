// Threads: each has its own objects; what is shared in the process has one lock of the program.
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

using namespace qxTools;

namespace {

std::mutex keyLock;  // keys are drawn from random numbers that all threads share

std::string NewKey() {
  const std::scoped_lock lock(keyLock);
  return QXUniKey::UniKey();
}

std::string CallOf(int number) {
  qxSqlStoreProc::TQXSqlStoreProc call;  // an object for this thread alone: no lock
  call.LoadStoreProc(u"select @MM_Number");
  call.SetValue("@MM_Number", number);
  return call.GetStoreProc()->GetText();
}

}  // namespace

int main() {
  std::vector<std::string> calls(4);
  std::set<std::string> keys;
  std::mutex keysLock;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&, i] {
      calls[static_cast<std::size_t>(i)] = CallOf(i);
      const std::string key = NewKey();
      const std::scoped_lock lock(keysLock);
      keys.insert(key);
    });
  for (std::thread& thread : threads) thread.join();
  std::cout << keys.size() << " keys\n" << calls[3];
}
