// What the laboratory prints of scripts.
#pragma once

#include <string>

#include "autobet/autobets.h"
#include "autobet/checkscript.h"
#include "lab/json.h"

namespace tarnwick::lab {

/// `FILE:LINE:COLUMN: MESSAGE` on one line without a line break; the column counts from 1.
std::string FaultText(const std::string& file, const ScriptVerdict& verdict);

/// Fields firstLine, lastLine, firstCol and lastCol: lines from 1, columns from 0, the last one exclusive.
void WriteSource(JsonWriter& json, const ScriptVerdict& verdict);

/// Fields elements, a list of [Code, Value], and pool, a list of texts; both from 1 on, so that the n-th item has the
/// number n.
void WriteElements(JsonWriter& json, const Compilation& c);

/// `[Step NAME LINE:COLUMN-LINE:COLUMN] TEXT` with line breaks as they are; both columns are of characters that belong
/// to the statement, from 1. `lines` is the source that the step ran in.
std::string StepText(const std::string& name, const ScriptStep& step, const std::vector<std::string>& lines);
void WriteStep(JsonWriter& json, const ScriptStep& step, const std::vector<std::string>& lines);

}  // namespace tarnwick::lab
