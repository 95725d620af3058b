#include "platform/Interrupts.h"

#include <windows.h>

namespace qxtool {

namespace {

constexpr DWORD kTick = 100;  // milliseconds

// Events are for good: the system may call the handler while an Interrupts is being destroyed.
HANDLE NewEvent() { return ::CreateEventW(nullptr, FALSE, FALSE, nullptr); }

HANDLE CtrlC() {
  static const HANDLE event = NewEvent();
  return event;
}

HANDLE Woken() {
  static const HANDLE event = NewEvent();
  return event;
}

BOOL WINAPI OnKey(DWORD key) {
  if (key != CTRL_C_EVENT && key != CTRL_BREAK_EVENT) return FALSE;
  ::SetEvent(CtrlC());
  return TRUE;
}

}  // namespace

struct Interrupts::State {};

// A program that is to ignore Ctrl-C is not called.
Interrupts::Interrupts() {
  ::ResetEvent(Woken());
  Forget();
  ::SetConsoleCtrlHandler(OnKey, TRUE);
}

Interrupts::~Interrupts() { LetEnd(); }

Interrupts::Event Interrupts::Wait() {
  const HANDLE events[] = {CtrlC(), Woken()};
  const DWORD event = ::WaitForMultipleObjects(2, events, FALSE, kTick);
  return event == WAIT_OBJECT_0 ? Event::kCtrlC : event == WAIT_TIMEOUT ? Event::kTick : Event::kWoken;
}

void Interrupts::Wake(std::thread&) { ::SetEvent(Woken()); }

void Interrupts::Forget() { ::ResetEvent(CtrlC()); }

void Interrupts::LetEnd() { ::SetConsoleCtrlHandler(OnKey, FALSE); }

}  // namespace qxtool
