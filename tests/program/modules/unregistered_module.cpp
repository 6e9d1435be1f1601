// A module that has every export and makes no plug-in.

#include "tests/program/modules/exports.h"
