// What stands where on the pages, on a printer that remembers.

#include "parameter/para_controls.h"
#include "parameter/para_rows.h"
#include "platform/whole_file.h"
#include "print/grp_print.h"
#include "print/page_recorder.h"
#include "print/para_print.h"
#include "print/posi_print.h"
#include "print/print_job.h"
#include "print/print_page.h"
#include "print/sm_print.h"
#include "support/bench.h"
#include "tables/grp_table.h"
#include "tables/sm_table.h"

namespace qdw8::test {
namespace {

/// The longest that a file or the grid can hold, in the axes of the mask.
PosiPrint Positions(int count, unsigned mask) {
    PosiPrint print{"job.qdd", "", {}, {}};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        print.devices[axis] = (mask >> axis & 1U) != 0 ? "QD-J52L-100EV(Old)" : "";
    }
    for (int position = 1; position <= count; ++position) {
        PosiPrintRow row{position, {}};
        for (int column = 0; column < kComment; ++column) {
            const PosiColumn& it = ColumnOf(column);
            if (it.axis < 0 || (mask >> static_cast<unsigned>(it.axis) & 1U) != 0) {
                row.cells[static_cast<std::size_t>(column)] = it.item != kPosi    ? "60"
                                                              : IsSet(DispMmFlag) ? " 500.000"
                                                                                  : "262143";
            }
        }
        for (int i = 0; i < 40; ++i) {
            row.cells[kComment] += position % 2 == 0 ? "原" : "m";
        }
        print.rows.push_back(row);
    }
    return print;
}

/// Parameters with the longest text of each list, of the axes of the mask.
void FillParameters(unsigned mask) {
    ParaRowTable = {};
    for (std::size_t row = kRowOFFSET; row <= kRowSTOP_PAUSE; ++row) {
        const auto choices = ParaListRows(static_cast<ParaRow>(row));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            ParaRowTable.at(axis, row) = choices.empty() ? 262143.0 : choices.back().value;
        }
    }
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        ParaRowTable.at(axis, kRowActuator) = std::string(" 44L100");
    }
    ParaRowTable.at(0, kRowAXIS) = static_cast<double>(mask);
}

struct PagesBench : Bench {
    PagesBench() {
        ThePlatform().CommonDialog1.ShowPrinter = [](const PrinterQuestion& asked) {
            EXPECT_TRUE(asked.offersPreview && asked.flags == 1310724);
            return PrinterAnswer::Print;
        };
        for (std::size_t i = 1; i <= kGroups; ++i) {
            const auto number = static_cast<std::int16_t>(i);
            GrpCompare[i] = {number, 999, 0};
        }
        GrpCompare[7] = {};
        for (SmMacro& macro : SmCompare) {
            macro.fill({6, 9});
            macro[15] = {kNeverWritten, 0};
        }
        SmCompare[1][14] = {9, 3};
        SmCompare[20].fill({kNotInFile, kNotInFile});
        GrpCompare[9] = {kNotInFile, kNotInFile, kNotInFile};
    }
    void expectSame(const char* file) {
        const std::string now = testing::TempDir() + file;
        WriteWholeFile(now, page.told());
        EXPECT_TRUE(page.told() ==
                    ReadWholeFile(QDW8_SOURCE_DIR "/tests/print/pages/" + std::string(file)))
            << "what is printed now: " << now;
        page.expectLegible();
        page.clear();
    }
    void printPositions(const PosiPrint& print) {
        PrinterSetup(kPosiPageLines);
        PrintPosiPages(print);
    }

    PageRecorder page;
};
using Pages = Unit<PagesBench>;

TEST_F(Pages, StandAsInTheFiles) {
    printPositions(Positions(31, 0b1101));
    expectSame("positions.txt");
    PrintGrpData("three.grp");
    expectSame("groups.txt");
    PrintSmData(kShownName);
    EXPECT_EQ(page.pages, 1 + 3);
    expectSame("macros.txt");
    FillParameters(0b1101);
    ParaRowTable.at(0, kRowTYPE) = 4.0; // which the window's list doesn't have
    PrintParaData("four.pmt");
    expectSame("parameters.txt");
    EXPECT_EQ(page.font, "MS GOTHIC");
}

// Every mask, unit, language, paper and face: nothing over anything else, nothing beyond an edge.
TEST_F(Pages, NothingIsOverprinted) {
    const std::vector<std::pair<double, double>> papers{
        {200, 287}, {205.9, 269.4}, {287, 200}, {178, 265}, {138, 200}};
    for (const Face& face : {Face{}, Face{0.6, 1.0, 1.17}, Face{0.55, 1.1, 1.45}}) {
        for (const auto& [width, height] : papers) {
            SCOPED_TRACE(std::to_string(width) + " mm, line " + std::to_string(face.height));
            page.face = face;
            page.width = width;
            page.height = height;
            for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
                LanguageBase = base;
                for (unsigned mask = 0; mask < 32; ++mask) {
                    DispMmFlag = FlagOf(mask >= 16);
                    printPositions(Positions(2, mask % 16));
                    page.expectLegible();
                    page.clear();
                }
                const std::string name(40, 'm');
                FillParameters(0b1011);
                for (const auto& print : {PrintGrpData, PrintSmData, PrintParaData}) {
                    print(name + ".long");
                    page.expectLegible();
                    page.clear();
                }
            }
        }
    }
}

// At every length: thirty positions on a page of A4, each on its two lines.
TEST_F(Pages, BreakWhereTheNextPositionHasNoRoom) {
    PosiPrint print;
    for (int count = 1; count <= 999; ++count) {
        print.rows.push_back({count, {}});
        printPositions(print);
        ASSERT_EQ(PrintPageNo, (count + 29) / 30);
        std::size_t seen = 0;
        for (const PageRecorder::Text& it : page.texts) {
            if (it.x == 20 && it.text[0] != 'N') {
                ASSERT_EQ(it.text, std::to_string(seen + 1));
                ASSERT_EQ(it.page, static_cast<int>(seen / 30) + 1);
                ASSERT_EQ(it.y, static_cast<double>(4 * (6 + 2 * (seen % 30))));
                ++seen;
            }
        }
        ASSERT_EQ(seen, print.rows.size());
        page.clear();
    }
}

TEST_F(Pages, ATextThatFitsAtNoSizeShowsThatItWasCut) {
    PosiPrint print = Positions(1, 15);
    print.fileName = std::string(200, 'x') + "原.qdd";
    printPositions(print);
    page.expectLegible();
    EXPECT_TRUE(page.texts[1].text.ends_with("x...")) << page.texts[1].text;
    EXPECT_EQ(page.texts[1].points, 4.5);
}

} // namespace
} // namespace qdw8::test
