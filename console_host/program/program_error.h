#pragma once

#include <stdexcept>

/// What keeps the program from doing what it was asked; one line that names what and why.
class ProgramError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
