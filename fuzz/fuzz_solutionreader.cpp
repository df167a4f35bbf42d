// Feeds the input to the solution-file reader from memory. A solution read from anything but a
// file resolves its project paths against the current folder, which the harness points at the
// sandbox.

#include "fuzzsupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Velmora::Fuzz::readFromMemory(Velmora::Fuzz::harness().solution, QString(), data, size);
    return 0;
}
