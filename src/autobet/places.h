// Where elements come from: the line markers around them.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "autobet/element.h"

namespace tarnwick {

/// An error of the statement that holds the element `index` (not a marker), from its marker to the next. A statement
/// never leaves its line, so an end marker of a later line means the end of this one.
inline CompileError ErrorAt(const std::vector<Element>& elements, std::size_t index, std::string text) {
    std::size_t first = index;
    while (first > 0 && !IsMarker(elements[first])) --first;
    std::size_t last = index + 1;
    while (last + 1 < elements.size() && !IsMarker(elements[last])) ++last;
    CompileError error;
    error.Text = std::move(text);
    error.FirstLine = LineOf(elements[first]);
    error.FirstCol = ColumnOf(elements[first]);
    const bool sameLine = last < elements.size() && elements[last].Code == elements[first].Code;
    error.LastLine = error.FirstLine;
    error.LastCol = sameLine ? ColumnOf(elements[last]) : 0;
    return error;
}

/// Whether the walk over a list is between IF or ELSEIF and THEN.
class ConditionFlag {
  public:
    void See(const Element& e) {
        if (e.Code == Code::If || e.Code == Code::ElseIf) On = true;
        if (e.Code == Code::Then) On = false;
    }
    bool IsOn() const { return On; }

  private:
    bool On = false;
};

}  // namespace tarnwick
