// Letters of code page 1252, whatever the host's locale.
#pragma once

bool IsLetter(char character);
