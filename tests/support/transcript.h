// Transcripts of shell commands, as golden files and as examples in the documentation.
//
// A line "$ COMMAND" begins a command; a here-document goes on to its end. What follows is the expected output (both
// streams), and "[exit N]" stands behind it when the status is not 0. In the expectation a line "..." stands for any
// number of lines. Lines before the first command, and from a line "## " to the next command, are prose.
#pragma once

#include <string>
#include <vector>

namespace tarnwick::testsupport {

struct Step {
    int Line = 0;                       ///< where the command stands, from 1
    std::string Prose;                  ///< ahead of it
    std::string Command;                ///< with its here-document
    std::vector<std::string> Expected;  ///< lines
};

using Transcript = std::vector<Step>;

Transcript ReadTranscript(const std::string& text, int firstLine = 1);
/// The transcript as a file, with other outputs in the place of the expected ones.
std::string WriteTranscript(const Transcript& transcript, const std::vector<std::vector<std::string>>& outputs);

/// Runs a command in sh, the laboratory in its path; its lines, with the status as above.
std::vector<std::string> RunInShell(const std::string& command);

/// Whether `actual` is what `expected`, with its "..." lines, allows.
bool LinesMatch(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

/// The fenced blocks of a Markdown text that begin with a command.
std::vector<Transcript> TranscriptsOfMarkdown(const std::string& text);

std::string ReadWholeFile(const std::string& path);
std::vector<std::string> SplitLines(const std::string& text);
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace tarnwick::testsupport
