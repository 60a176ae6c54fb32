#include "support/transcript.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tarnwick::testsupport {

namespace {

constexpr const char* Prompt = "$ ";

bool IsCommand(const std::string& line) { return line.rfind(Prompt, 0) == 0; }

/// The word that ends the here-document of a command line, or nothing.
std::string HereDocumentEnd(const std::string& line) {
    const std::size_t at = line.find("<<");
    if (at == std::string::npos) return {};
    std::string word;
    for (const char c : line.substr(at + 2)) {
        if (c == ' ' || c == ';' || c == '|' || c == '>') break;
        if (c != '\'') word += c;
    }
    return word;
}

}  // namespace

Transcript ReadTranscript(const std::string& text, int firstLine) {
    Transcript steps;
    const std::vector<std::string> lines = SplitLines(text);
    std::string prose, end;  // end: of the here-document that is being read
    bool inProse = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!end.empty()) {
            steps.back().Command += lines[i] + "\n";
            if (lines[i] == end) end.clear();
        } else if (IsCommand(lines[i])) {
            steps.push_back({firstLine + static_cast<int>(i), prose, lines[i].substr(2) + "\n", {}});
            end = HereDocumentEnd(lines[i]);
            prose.clear();
            inProse = false;
        } else if (inProse || lines[i].rfind("## ", 0) == 0) {
            inProse = true;
            prose += lines[i] + "\n";
        } else {
            steps.back().Expected.push_back(lines[i]);
        }
    }
    return steps;
}

std::string WriteTranscript(const Transcript& transcript, const std::vector<std::vector<std::string>>& outputs) {
    std::string text;
    for (std::size_t i = 0; i < transcript.size(); ++i) {
        text += transcript[i].Prose + Prompt + transcript[i].Command + JoinLines(outputs[i]);
    }
    return text;
}

std::vector<std::string> RunInShell(const std::string& command) {
    const char* laboratory = std::getenv("TARNWICK_LAB");
    const std::string folder = std::filesystem::path(laboratory != nullptr ? laboratory : "").parent_path().string();
    const std::string script = "PATH='" + folder + "':$PATH\nexec 2>&1\n" + command;
    FILE* pipe = popen(script.c_str(), "r");
    if (pipe == nullptr) return {"the shell did not start"};
    std::string output;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, count);
    const int status = pclose(pipe);
    std::vector<std::string> lines = SplitLines(output);
    if (WIFSIGNALED(status)) lines.push_back("[signal " + std::to_string(WTERMSIG(status)) + "]");
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0) {
        lines.push_back("[exit " + std::to_string(WEXITSTATUS(status)) + "]");
    }
    return lines;
}

bool LinesMatch(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    // reachable[j]: the expectation so far can have used up j lines.
    std::vector<bool> reachable(actual.size() + 1, false);
    reachable[0] = true;
    for (const std::string& line : expected) {
        std::vector<bool> next(actual.size() + 1, false);
        for (std::size_t j = 0; j <= actual.size(); ++j) {
            if (line == "...") {
                next[j] = reachable[j] || (j > 0 && next[j - 1]);
            } else if (j > 0) {
                next[j] = reachable[j - 1] && actual[j - 1] == line;
            }
        }
        reachable = std::move(next);
    }
    return reachable.back();
}

std::vector<Transcript> TranscriptsOfMarkdown(const std::string& text) {
    std::vector<Transcript> transcripts;
    const std::vector<std::string> lines = SplitLines(text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].rfind("```", 0) != 0) continue;
        std::size_t end = i + 1;
        std::string block;
        while (end < lines.size() && lines[end].rfind("```", 0) != 0) block += lines[end++] + "\n";
        if (IsCommand(block)) transcripts.push_back(ReadTranscript(block, static_cast<int>(i) + 2));
        i = end;
    }
    return transcripts;
}

std::string ReadWholeFile(const std::string& path) {
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t end = text.find('\n', begin);
        if (end == std::string::npos) end = text.size();
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

}  // namespace tarnwick::testsupport
