#pragma once

#include <string_view>
#include <vector>

class CKelvoCommand;
class CKelvoPlugIn;
class CWinApp;

/// What the loaded modules have made, each list in the order of construction. No exception leaves
/// the construction of a module's globals: an object for which there is no memory is left out, and
/// the failure is counted as every one is.
std::vector<CKelvoPlugIn*>& PlugIns();
std::vector<CKelvoCommand*>& Commands();
std::vector<CWinApp*>& ModuleApps();

/// Returns the command of that English name, taken without regard to case, or null.
CKelvoCommand* FindCommand(std::wstring_view englishName);
