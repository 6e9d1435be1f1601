#pragma once

/// What becomes of a report to GK_Error. It must not throw.
using ErrorHandler = void (*)(const char* source, int line, const char* text) noexcept;

/// Sets the handler and gives the one before. Null: reports go to standard error.
ErrorHandler SetErrorHandler(ErrorHandler handler) noexcept;
