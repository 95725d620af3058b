// A bank of integers, and a block of bytes with a cursor.
#include <qxTools/base/Exceptions.h>
#include <qxTools/memory/QXMemTools.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::QXMemTools;

int main() {
  TIntegerBank squares;  // one element at first, all zeros
  squares.SetCount(5);
  for (Integer i = 0; i < squares.GetCount(); ++i) squares.SetValue(i, i * i);
  std::cout << squares.GetCount() << " elements, " << squares.GetSize() << " bytes, last "
            << squares.GetValue(4) << "\n";
  try {
    squares.GetValue(5);
  } catch (const Exception& e) {
    std::cout << e.what() << "\n";
  }

  // The block never grows by writing; SetSize does that.
  TMemoryOperation block(8);
  block.Write("abcdef", 6);
  block.Write("ghij", 4);
  std::cout << "cursor " << block.GetPosition() << ", at the end: " << block.Eof() << "\n";
  block.SetPosition(0);
  char bytes[8];
  block.Read(bytes, 8);
  std::cout << std::string_view(bytes, 8) << "\n";

  // A free block is known by its address alone.
  void* const memory = MemCreate(100);
  std::cout << "room for 100: " << (MemSize(memory) >= 100) << "\n";
  MemFree(memory);
}
