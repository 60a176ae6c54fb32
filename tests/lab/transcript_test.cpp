// The laboratory as people use it: golden transcripts in tests/golden/lab, and the examples of its documentation.

#include "support/transcript.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tarnwick::testsupport {
namespace {

constexpr const char* GoldenFolder = "tests/golden/lab";

void ExpectStep(const Step& step, const std::vector<std::string>& output) {
    EXPECT_TRUE(LinesMatch(step.Expected, output)) << "line " << step.Line << ": $ " << step.Command << "--- expected\n"
                                                   << JoinLines(step.Expected) << "--- printed\n"
                                                   << JoinLines(output);
}

TEST(LaboratoryTranscripts, GoldenFilesComeOutAsTheyStand) {
    const char* renew = std::getenv("TARNWICK_RENEW_GOLDEN");
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(GoldenFolder)) {
        SCOPED_TRACE(entry.path().string());
        const Transcript transcript = ReadTranscript(ReadWholeFile(entry.path()));
        std::vector<std::vector<std::string>> outputs;
        for (const Step& step : transcript) outputs.push_back(RunInShell(step.Command));
        if (renew != nullptr && *renew == '1') {
            std::ofstream(entry.path(), std::ios::binary) << WriteTranscript(transcript, outputs);
        } else {
            EXPECT_FALSE(transcript.empty());
            for (std::size_t i = 0; i < outputs.size(); ++i) ExpectStep(transcript[i], outputs[i]);
        }
        ++files;
    }
    EXPECT_GT(files, 0);
}

TEST(LaboratoryTranscripts, ExamplesOfTheDocumentationHold) {
    const std::vector<Transcript> transcripts = TranscriptsOfMarkdown(ReadWholeFile("doc/laboratory.md"));
    EXPECT_FALSE(transcripts.empty());
    for (const Transcript& transcript : transcripts) {
        for (const Step& step : transcript) ExpectStep(step, RunInShell(step.Command));
    }
}

TEST(LaboratoryTranscripts, EllipsisStandsForAnyNumberOfLines) {
    struct Case {
        std::vector<std::string> Expected, Actual;
        bool Match;
    };
    const Case cases[] = {{{"a", "...", "c"}, {"a", "c"}, true},
                          {{"a", "...", "c"}, {"a", "b", "c", "c"}, true},
                          {{"a", "...", "c"}, {"a", "c", "b"}, false},
                          {{"..."}, {}, true},
                          {{"a"}, {}, false},
                          {{}, {"a"}, false}};
    for (const Case& c : cases) EXPECT_EQ(LinesMatch(c.Expected, c.Actual), c.Match) << JoinLines(c.Actual);
}

}  // namespace
}  // namespace tarnwick::testsupport
