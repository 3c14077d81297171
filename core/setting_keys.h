// The keys that more than one part of the sheet knows. A key of one page alone stands in that page's tables.
#pragma once

inline constexpr char kKeyDrwMode[] = "DRW_MODE";
inline constexpr char kKeyBetPrefix[] = "BET_PREFIX";
inline constexpr char kKeyCoordBet[] = "COORD_BET";
// The start point of phase lines, which stands in for start points of terminals that are missing.
inline constexpr char kKeyStartX[] = "X-COORD";
inline constexpr char kKeyStartY[] = "Y-COORD";
// The assembly text height under its preferred key, and under the older spelling, which is the fallback.
inline constexpr char kKeyAssemblyHeight[] = "ASSEMBLY_TXTHGT";
inline constexpr char kKeyAssemblyHeightOld[] = "ASSMBLY_TXTHGT";
inline constexpr char kKeyAssemblyTextVisible[] = "ASSEMBLY_TXTVISIBLE";
