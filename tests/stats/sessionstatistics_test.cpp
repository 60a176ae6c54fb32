#include "stats/sessionstatistics.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "stats/sessionsview.h"
#include "support/temporaryfolder.h"

namespace tarnwick {

inline std::ostream& operator<<(std::ostream& out, currency amount) { return out << ToDouble(amount); }

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testsupport::TemporaryFolder;

currency Money(double amount) { return ToCurrency(amount); }

struct SessionStatisticsTest : testing::Test {
    /// A log of sessions with these net results, each on a handle of 100 in 10 rolls.
    const SessionsLog& LogOf(const std::vector<currency>& nets) {
        const std::string path = Folder.Path("log.slg");
        EXPECT_EQ(DeleteSessionsLog(path), "");
        for (const currency net : nets) {
            SessionRecord record{};
            record[SessionStat::Rolls] = Dollars(10);
            record[SessionStat::Handle] = Dollars(100);
            record[SessionStat::MoneyNet] = net;
            EXPECT_EQ(AppendSessionRecord(path, record), "");
        }
        EXPECT_EQ(Log.Open(path), "");
        return Log;
    }
    const SessionsLog& LogOf(std::initializer_list<double> nets) {
        std::vector<currency> amounts;
        for (const double net : nets) amounts.push_back(Money(net));
        return LogOf(amounts);
    }

    TemporaryFolder Folder;
    SessionsLog Log;
};

TEST_F(SessionStatisticsTest, Medians) {
    struct Case {
        std::vector<double> Nets;
        double Median;
        bool Estimated;
    };
    const Case cases[] = {
        {{7}, 7, false},
        {{1, 3}, 2, true},                            // the border between two bins
        {{3, 1}, 2, true},                            // in whatever order
        {{1, 2, 9}, 2, false},                        // one value in its bin
        {{5, 5, 5, 5}, 5, false},                     // all in the middle bin
        {{0, 0, 0, 1000}, 0, false},                  // even, but the bin goes on behind the middle
        {{0, 0, 1000, 1000}, 500, true},              // far over empty bins
        {{0, 500, 500.5, 1000, 1000}, 500.25, true},  // two values in the bin: its middle
        {{0, 500, 500.5, 1000}, 500.25, true},
        {{-4, -2, -1}, -2, false},
        {{0.0001, 0.0002}, 0.0002, true},  // 1.5 ten-thousandths: to the even one
    };
    for (const Case& c : cases) {
        std::vector<currency> nets;
        for (const double net : c.Nets) nets.push_back(Money(net));
        const SessionStatistics s = SumUpSessions(LogOf(nets), {});
        EXPECT_EQ(s.Median, Money(c.Median)) << testing::PrintToString(c.Nets);
        EXPECT_EQ(s.MedianEstimated, c.Estimated) << testing::PrintToString(c.Nets);
    }
}

TEST_F(SessionStatisticsTest, AWorkedExample) {
    const SessionStatistics s = SumUpSessions(LogOf({2, 4, 4, 4, 5, 5, 7, 9}), {});
    EXPECT_EQ(s.Sum, Money(40));
    EXPECT_EQ(s.Mean, Money(5));
    EXPECT_EQ(s.Variance, Money(4)) << "divided by 8, not by 7";
    EXPECT_EQ(s.Deviation, Money(2));
    EXPECT_EQ(s.Skew, Money(0.6562));       // 5.25 / 8 = 0.65625, half to even
    EXPECT_EQ(s.Kurtosis, Money(-0.2188));  // 22.25 / 8 - 3 = -0.21875, likewise
    EXPECT_EQ(s.Mode, Money(4));
    EXPECT_EQ(s.Median, Money(4.5));
    EXPECT_EQ(s.High, Money(9));
    EXPECT_EQ(s.Low, Money(2));
    EXPECT_EQ(s.Mid, Money(5.5));
    EXPECT_EQ(s.Range, Money(7));
    EXPECT_EQ(s.Rolls, Money(80));
    EXPECT_EQ(s.Handle, Money(800));
    EXPECT_EQ(s.Net, Money(40));
    EXPECT_EQ(s.Advantage, Money(5));
    EXPECT_EQ(s.Bins[0].Count, 1);
    EXPECT_EQ(s.Bins[524].Count, 1);
    EXPECT_EQ(s.Bins[150].Count, 3);  // 2 * 524 / 7 = 149.7
    EXPECT_EQ(s.Bins[150].Low, Money(4));
}

TEST_F(SessionStatisticsTest, OneSessionOrOneValue) {
    for (const std::size_t count : {1u, 5u}) {
        const SessionStatistics s = SumUpSessions(LogOf(std::vector<currency>(count, Money(-3.5))), {});
        EXPECT_EQ(s.Deviation, currency{});
        EXPECT_EQ(s.Skew, currency{});
        EXPECT_EQ(s.Kurtosis, currency{});
        EXPECT_EQ(s.Mode, Money(-3.5));
        for (std::size_t i = 0; i < HistogramBins; ++i) {
            EXPECT_EQ(s.Bins[i].Count, i == 262 ? static_cast<int>(count) : 0) << i;
        }
    }
}

TEST_F(SessionStatisticsTest, BinsRoundHalvesToTheEvenOne) {
    // Over a range of 1048 a bin is 2 wide, so that every odd value lies between two.
    const SessionStatistics s = SumUpSessions(LogOf({0, 1, 3, 5, 7, 1041, 1047, 1048}), {});
    std::vector<std::pair<std::size_t, std::int64_t>> filled;
    for (std::size_t i = 0; i < HistogramBins; ++i) {
        if (s.Bins[i].Count > 0) filled.emplace_back(i, s.Bins[i].Count);
    }
    using Bin = std::pair<std::size_t, std::int64_t>;
    EXPECT_THAT(filled, ElementsAre(Bin(0, 2), Bin(2, 2), Bin(4, 1), Bin(520, 1), Bin(524, 2)));
    EXPECT_EQ(s.Mode, Money(0)) << "the lowest of the fullest bins";
}

TEST_F(SessionStatisticsTest, ClassesAndWhatIsIncluded) {
    LogOf({-10, -5, 0, 0, 5, 10, 20});
    struct Case {
        bool Won, Even, Lost;
        double BreakLow, BreakHigh;
        std::vector<int> Counts;  ///< won, even, lost, included
        double Sum;
    };
    const Case cases[] = {
        {true, true, true, 0, 0, {3, 2, 2, 7}, 20},   {true, false, false, 0, 0, {3, 2, 2, 3}, 35},
        {false, true, false, 0, 0, {3, 2, 2, 2}, 0},  {false, false, true, 0, 0, {3, 2, 2, 2}, -15},
        {false, false, false, 0, 0, {3, 2, 2, 0}, 0}, {true, false, true, -5, 10, {1, 5, 1, 2}, 10},
        {false, true, false, 6, 6, {2, 0, 5, 0}, 0},
    };
    for (const Case& c : cases) {
        const SessionsQuery view{SessionStat::MoneyNet, c.Won, c.Even, c.Lost, Money(c.BreakLow), Money(c.BreakHigh)};
        const SessionStatistics s = SumUpSessions(Log, view);
        EXPECT_THAT((std::vector<std::int64_t>{s.Won, s.Even, s.Lost, s.Included}),
                    testing::ElementsAreArray(c.Counts));
        EXPECT_EQ(s.Sessions, 7);
        EXPECT_EQ(s.Sum, Money(c.Sum));
    }
}

TEST_F(SessionStatisticsTest, ExcessiveAmountsAreNoticed) {
    const currency most{std::numeric_limits<std::int64_t>::max()}, least{std::numeric_limits<std::int64_t>::min()};
    struct Case {
        const char* What;
        std::vector<currency> Nets;
        bool Excessive;
    };
    const Case cases[] = {
        {"sum", {most, most}, true},
        {"sum below", {least, currency{-1}}, true},
        {"range and variance", {most, least}, true},
        {"variance alone", {Dollars(60'000'000), Dollars(-60'000'000)}, true},
        {"a large value that is alone", {Dollars(900'000'000'000)}, false},
        {"large", {Dollars(20'000'000), Dollars(-20'000'000)}, false},
    };
    for (const Case& c : cases) {
        const SessionStatistics s = SumUpSessions(LogOf(c.Nets), {});
        EXPECT_EQ(s.Excessive, c.Excessive) << c.What;
        if (c.Excessive) {
            EXPECT_EQ(s.Included, 0) << c.What;
            EXPECT_EQ(s.Won + s.Even + s.Lost, static_cast<int>(c.Nets.size())) << "the classes are counted";
        }
    }
    EXPECT_THAT(ExcessiveText("Ann"), HasSubstr("calculating the statistics for Ann. This may"));
}

/// All figures by other means: sorted values in memory and sums in long double.
TEST_F(SessionStatisticsTest, AgreeWithTheTextbook) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        std::vector<currency> nets(static_cast<std::size_t>(1 + round * 17));
        for (currency& net : nets) net = currency{static_cast<std::int64_t>(random() % 40'000'000) - 15'000'000};
        const SessionStatistics s = SumUpSessions(LogOf(nets), {});
        std::sort(nets.begin(), nets.end());
        long double mean = 0, squares = 0, cubes = 0, fourths = 0;
        for (const currency net : nets) mean += static_cast<long double>(ToDouble(net));
        const auto n = static_cast<long double>(nets.size());
        mean /= n;
        for (const currency net : nets) {
            const long double d = static_cast<long double>(ToDouble(net)) - mean;
            squares += d * d;
            cubes += d * d * d;
            fourths += d * d * d * d;
        }
        const long double variance = squares / n;
        EXPECT_NEAR(ToDouble(s.Mean), static_cast<double>(mean), 0.0001);
        EXPECT_NEAR(ToDouble(s.Variance), static_cast<double>(variance), 0.001);
        EXPECT_NEAR(ToDouble(s.Deviation), std::sqrt(static_cast<double>(variance)), 0.0002);
        if (nets.size() > 1) {
            const long double deviation = std::sqrt(variance);
            EXPECT_NEAR(ToDouble(s.Skew), static_cast<double>(cubes / n / (deviation * variance)), 0.001);
            EXPECT_NEAR(ToDouble(s.Kurtosis), static_cast<double>(fourths / n / (variance * variance) - 3), 0.001);
        }
        // A median that is an estimate is wrong by a bin at most.
        const std::size_t half = nets.size() / 2;
        const double median =
            nets.size() % 2 == 1 ? ToDouble(nets[half]) : (ToDouble(nets[half - 1]) + ToDouble(nets[half])) / 2;
        EXPECT_NEAR(ToDouble(s.Median), median, s.MedianEstimated ? ToDouble(s.Range) / 524 : 0);
        std::int64_t inBins = 0;
        for (const HistogramBin& bin : s.Bins) inBins += bin.Count;
        EXPECT_EQ(inBins, static_cast<std::int64_t>(nets.size()));
        for (const int width : {1, 5, 25, 105}) {
            const auto bars = HistogramBars(s, width);
            EXPECT_EQ(bars.size(), 525u / static_cast<unsigned>(width));
            const auto sum = std::accumulate(bars.begin(), bars.end(), std::int64_t{0},
                                             [](std::int64_t a, const HistogramBar& bar) { return a + bar.Count; });
            EXPECT_EQ(sum, s.Included);
            EXPECT_NEAR(bars.front().From, ToDouble(s.Low), 1e-9);
            EXPECT_NEAR(bars.back().To, ToDouble(s.High), 1e-6);
        }
    }
}

TEST_F(SessionStatisticsTest, Marks) {
    LogOf({2, 4, 4, 4, 5, 5, 7, 9});  // mean 5, deviation 2
    SessionStatistics s = SumUpSessions(Log, {}, {SessionsMark{Money(4), {}}, SessionsMark{{}, 1.0}});
    EXPECT_EQ(*s.Marks[0].Deviation, -0.5);
    EXPECT_EQ(*s.Marks[1].Value, Money(7));
    EXPECT_EQ(s.Between, 6);
    s = SumUpSessions(Log, {}, {SessionsMark{Money(7), {}}, SessionsMark{Money(4), {}}});
    EXPECT_EQ(s.Between, 6) << "in either order";
    s = SumUpSessions(Log, {}, {SessionsMark{Money(7), {}}, SessionsMark{}});
    EXPECT_EQ(s.Between, 0);
    s = SumUpSessions(LogOf({3, 3}), {}, {SessionsMark{Money(7), {}}, SessionsMark{{}, 2.0}});
    EXPECT_EQ(*s.Marks[0].Deviation, 0) << "without any spread";
    EXPECT_EQ(*s.Marks[1].Value, Money(3));
    EXPECT_EQ(DeviationText(1.5), "1.5");
    EXPECT_EQ(DeviationText(0), "0");
    EXPECT_EQ(DeviationText(-1.5), "-1.500000000") << "a negative one has all places";
}

TEST_F(SessionStatisticsTest, Labels) {
    const SessionStatistics s = SumUpSessions(LogOf({-1250.5, 0, 2000, 2000.25}), {});
    const auto texts = [](const std::vector<SessionsLabel>& labels) {
        std::vector<std::string> lines;
        for (const SessionsLabel& label : labels) lines.push_back(label.Name + "|" + label.Text);
        return lines;
    };
    EXPECT_THAT(texts(DistributionLabels(s, SessionStat::MoneyNet)),
                ElementsAre("Sum|2,749.75", "Mean|687.44", "   Median *|1,000.0", "Mode|2,000.0", "High|2,000.25",
                            "Mid|374.88", "Low|-1,250.5", "Range|3,250.75", HasSubstr("Variance|"),
                            HasSubstr("Std Dev|"), HasSubstr("Skew|"), HasSubstr("Kurtosis|")));
    EXPECT_THAT(texts(ClassLabels(s, {})), ElementsAre("Won|2 50.0%", "Broke-even|1 25.0%", "Lost|1 25.0%", "Total|4"));
    EXPECT_THAT(texts(SumLabels(s)), ElementsAre("# Rolls|40", "Handle $|400.0", "Net $|2,749.75", "Advantage|687.44"));
    EXPECT_EQ(SessionValueText(SessionStat::Rolls, Dollars(1'234)), "1,234");
    EXPECT_EQ(SessionValueText(SessionStat::Percent, Money(-1.41)), "-1.41 %");
    EXPECT_EQ(SessionValueText(SessionStat::Percent, currency{}), "0 %");
    EXPECT_EQ(SessionValueText(SessionStat::FirstStack, Money(0.0001)), "0.0001");
    const SessionStatistics empty = SumUpSessions(LogOf(std::vector<currency>{}), {});
    EXPECT_EQ(texts(DistributionLabels(empty, 0)).front(), "Sum|");
    EXPECT_THAT(texts(ClassLabels(empty, {})), ElementsAre("Won|0 0%", "Broke-even|0 0%", "Lost|0 0%", "Total|0"));
}

TEST(SessionStatNames, FollowTheRecord) {
    EXPECT_EQ(SessionStatName(SessionStat::Rolls), "# Rolls");
    EXPECT_EQ(SessionStatName(SessionStat::Percent), "% Won or Lost (HA)");
    EXPECT_EQ(SessionStatName(SessionStat::EndingBankroll), "Ending bankroll");
    EXPECT_EQ(SessionStatName(12), "CheckStack #0");
    EXPECT_EQ(SessionStatName(31), "CheckStack #19");
}

}  // namespace
}  // namespace tarnwick
