#pragma once

#include <string_view>
#include <vector>

class CKelvoCommand;
class CKelvoPlugIn;
class CWinApp;

/// Return what the loaded modules have made, each list in the order of construction. The
/// construction of a module's globals never throws: when out of memory, an object is left out, and
/// the failure is counted as all are.
std::vector<CKelvoPlugIn*>& PlugIns();
std::vector<CKelvoCommand*>& Commands();
std::vector<CWinApp*>& ModuleApps();

/// Returns the command of that English name, ignoring case, or null.
CKelvoCommand* FindCommand(std::wstring_view englishName);
