// The text height of item designations on assembly drawings.
#include "core/assembly_height.h"

#include <cstring>

char g_assemblyTextHeight[32];
int g_assemblyHeightKeyFound = 0;

void SetAssemblyTextHeight(LPCSTR height) {
    std::strncpy(g_assemblyTextHeight, height, sizeof g_assemblyTextHeight - 1);
}
