// The framework's own messages to the user, in code page 1252.
#pragma once

constexpr char kPromptNumber[] = "Ange ett tal.";
constexpr char kPromptInteger[] = "Ange ett heltal.";
// Lower and upper bound.
constexpr char kPromptRange[] = "Ange ett tal mellan %1 och %2.";
// Number of characters.
constexpr char kPromptLength[] = "Ange h\xF6gst %1 tecken.";
constexpr char kPromptOutOfMemory[] = "Minnet r\xE4\x63ker inte. Inget har \xE4ndrats.";
constexpr char kPromptInternalError[] = "Internt fel.";
