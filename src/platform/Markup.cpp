#include "platform/Markup.h"

namespace dayward {

std::string markupOfText(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        switch (letter) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            default: result += letter;
        }
    }
    return result;
}

}  // namespace dayward
