// Constants for resource scripts, under the documented names. The resource compiler reads only definitions here.
#pragma once

#include "tavrikwin/styles.h"

#define VS_VERSION_INFO 1
#define VS_FFI_FILEFLAGSMASK 0x0000003FL
#define VOS_NT_WINDOWS32 0x00040004L
#define VFT_DLL 0x00000002L
#define VFT2_UNKNOWN 0x00000000L

#define LANG_SWEDISH 0x1d
#define SUBLANG_DEFAULT 0x01
