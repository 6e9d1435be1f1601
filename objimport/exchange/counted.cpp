#include "objimport/exchange/counted.h"

std::string NumberText(std::size_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t i = text.size(); i > 3; i -= 3)
        text.insert(i - 3, 1, ',');
    return text;
}

std::string Counted(std::size_t number, const char* one, const char* many)
{
    return NumberText(number) + " " + (number == 1 ? one : many);
}
