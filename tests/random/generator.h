// The random user: a scenario made from a seed, the same on every system.
#pragma once

#include <cstdint>
#include <string>

// The scenario's text, UTF-8: an odd store, then a few runs of clicks, keys, text, picks, OK and Cancel on the sheet.
// Nothing in it is expected to succeed: what the sheet does with it is to be compared, or to be survived.
std::string RandomScenario(std::uint32_t seed);
