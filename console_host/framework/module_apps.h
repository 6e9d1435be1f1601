#pragma once

#include <vector>

class CWinApp;

/// The application objects of the modules that are loaded, in the order of their making.
std::vector<CWinApp*>& ModuleApps();
