#include "autobet/print.h"

#include "autobet/numbertext.h"

namespace tarnwick {

std::string ElementsText(const Compilation& c) {
    std::string out;
    for (std::size_t i = 1; i < c.Elements.size(); ++i) {
        const Element& e = c.Elements[i];
        out += std::to_string(i) + " [" + std::to_string(e.Code) + ", " + GeneralNumber(e.Value) + "]\n";
    }
    for (std::size_t i = 1; i < c.Pool.size(); ++i) {
        out += "S" + std::to_string(i) + " \"" + c.Pool[i].Text + "\"";
        if (c.Pool[i].Value > 0) out += " " + GeneralNumber(c.Pool[i].Value);
        out += "\n";
    }
    return out;
}

}  // namespace tarnwick
