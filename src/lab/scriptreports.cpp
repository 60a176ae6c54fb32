#include "lab/scriptreports.h"

#include <algorithm>

#include "lab/texttable.h"

namespace tarnwick::lab {

namespace {

/// The source of a step as an editor would select it.
ScriptVerdict SourceOf(const ScriptStep& step, const std::vector<std::string>& lines) {
    return VerdictOf({step.Text, step.FirstLine, step.LastLine, step.FirstCol, step.LastCol}, lines);
}

std::string Place(int line, int column) { return std::to_string(line) + ":" + std::to_string(column); }

}  // namespace

std::string FaultText(const std::string& file, const ScriptVerdict& verdict) {
    return file + ":" + Place(verdict.FirstLine, verdict.FirstCol + 1) + ": " + OneLine(verdict.Text);
}

void WriteSource(JsonWriter& json, const ScriptVerdict& verdict) {
    json.Field("firstLine", verdict.FirstLine).Field("lastLine", verdict.LastLine);
    json.Field("firstCol", verdict.FirstCol).Field("lastCol", verdict.LastCol);
}

void WriteElements(JsonWriter& json, const Compilation& c) {
    json.Key("elements").BeginList();
    for (std::size_t i = 1; i < c.Elements.size(); ++i) {
        json.BeginList().Value(c.Elements[i].Code).Value(c.Elements[i].Value).EndList();
    }
    json.EndList().Key("pool").BeginList();
    for (std::size_t i = 1; i < c.Pool.size(); ++i) json.Value(c.Pool[i].Text);
    json.EndList();
}

std::string StepText(const std::string& name, const ScriptStep& step, const std::vector<std::string>& lines) {
    const ScriptVerdict source = SourceOf(step, lines);
    return "[Step " + name + " " + Place(source.FirstLine, source.FirstCol + 1) + "-" +
           Place(source.LastLine, std::max(1, source.LastCol)) + "] " + step.Text;
}

void WriteStep(JsonWriter& json, const ScriptStep& step, const std::vector<std::string>& lines) {
    json.BeginObject().Key("step").BeginObject().Field("p", step.Position).Field("text", step.Text);
    WriteSource(json, SourceOf(step, lines));
    json.EndObject().EndObject();
}

}  // namespace tarnwick::lab
