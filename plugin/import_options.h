#pragma once

#include "objreader/import_choices.h"

class CKelvoProfileContext;

/// The choices that are kept in the host's settings, each under its own name: those that shape an
/// import, and whether to ask for them.
struct ObjImportOptions : ImportChoices
{
    bool DontShowDialog = false; ///< an import uses these options without asking
};

/// The largest value of ObjImportOptions::HowToAddGs; the smallest is 0.
constexpr int HowToAddGsLimit = AsObjectNames;

/// Reads the options from a section of the settings. An entry that is missing or cannot be used
/// leaves its option as it is.
void LoadImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       ObjImportOptions& options);

/// Writes every option to a section of the settings.
void SaveImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       const ObjImportOptions& options);
