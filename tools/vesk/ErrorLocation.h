#pragma once

#include <string>

#include "ScriptLinter.h"

// The engine's errors name a line but not the file, which matters once a script imports others.
// These turn the last error into the vesk command's own "FILE:LINE: error: TEXT" line (without
// ":LINE" when the engine gives none, or line 0).

// A load error: an import's failure is followed into the imported file that failed.
std::string locateScriptError(const std::string& mainFile, const std::string& lastError);

// A runtime error, "At line N : FUNCTION: error : detail": the file is the one defining FUNCTION.
std::string locateRuntimeError(const ScriptLinter& linter, const std::string& mainFile,
                               const std::string& lastError);
