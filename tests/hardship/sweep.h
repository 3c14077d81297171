#pragma once

// Whether the sweep visits every point at which memory can be refused.
inline bool g_everyPoint = false;
