// The keys that more than one part of the sheet knows. A key of one page alone stands in that page's tables.
#pragma once

inline constexpr char kKeyDrwMode[] = "DRW_MODE";
inline constexpr char kKeyBetPrefix[] = "BET_PREFIX";
inline constexpr char kKeyCoordBet[] = "COORD_BET";
