// A plain metafile as anyone may have left it.
#include "FuzzPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzzMetafile(data, size, readWmf);
    return 0;
}
