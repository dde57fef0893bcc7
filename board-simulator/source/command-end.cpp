#include "board-simulator/source/command-end.h"

namespace board
{

bool CommandEnd::find(const std::string& text)
{
    while (next < text.size())
    {
        const char c = text[next++];
        if (isInString)
        {
            isInString = isEscaped || c != '"';
            isEscaped = !isEscaped && c == '\\';
        }
        else if (c == '"')
        {
            isInString = depth > 0;
        }
        else if (c == '{')
        {
            ++depth;
        }
        else if (c == '}' && depth > 0 && --depth == 0)
        {
            return true;
        }
    }
    return false;
}

} // namespace board
