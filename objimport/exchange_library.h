#pragma once

#include "objimport/exchange/exchange.h"
#include "objimport/platform.h"

/// The library that writes documents in forms of other programs, loaded into the program.
class ExchangeLibrary
{
public:
    /// Loads the library from beside the program or from where an installation has it. Throws
    /// ProgramError, which names the file and the reason, when that fails.
    ExchangeLibrary();

    /// Returns why this build cannot write a form; null when it can.
    [[nodiscard]] const char* WhyMissing(ExchangeForm form) const { return m_whyMissing(form); }

    /// Writes a document.
    [[nodiscard]] ExchangeOutcome Write(const ExchangeRequest& request) const;

private:
    Library m_library;
    ExchangeWhyMissing m_whyMissing = nullptr;
    ExchangeWrite m_write = nullptr;
};
