#include "parameter/para_fields.h"

#include "app/string_table.h"
#include "parameter/para_edit.h"
#include "parameter/para_field_check.h"
#include "parameter/para_marks.h"
#include "parameter/parameter_bench.h"

#include <sstream>

namespace qdw8::test {
namespace {

/// A line of controls.txt.
struct Told {
    ParaControl control{};
    int row = 0, page = 0;
    std::size_t elements = 0;
    std::string lock, kind, rest;
    bool isText() const { return kind == "text"; }
};

struct FieldsBench : ParameterBench {
    FieldsBench() {
        std::istringstream table(ReadWholeFile(kHere + "controls.txt"));
        std::string name;
        std::getline(table, name);
        Told row;
        while (table >> name >> row.row >> row.page >> row.elements >> row.lock >> row.kind &&
               std::getline(table, row.rest)) {
            row.control = ParaControlNamed(name).value();
            told.push_back(row);
        }
        ParametaHyoji();
    }
    template<typename Visit> void eachField(Visit visit) const {
        for (const Told& row : told) {
            for (std::size_t axis = 0; axis < row.elements; ++axis) {
                SCOPED_TRACE(std::string(RowOf(row.control).name) + " " + std::to_string(axis));
                visit(row, axis);
            }
        }
    }
    std::vector<Told> told;
};
using FieldsTest = Unit<FieldsBench>;

TEST_F(FieldsTest, EveryControlKeepsToItsTable) {
    ASSERT_EQ(told.size(), kParaControls);
    eachField([this](const Told& row, std::size_t axis) {
        EXPECT_EQ(RowOf(row.control).page, row.page);
        if (!row.isText()) {
            std::string rest = row.kind == "list" ? " " : "";
            for (const ParaListRow& entry : ParaListRows(RowOf(row.control).row)) {
                rest += ResText(entry.textId) + "=" + std::to_string(entry.value) + ";";
            }
            EXPECT_EQ(rest, row.rest);
            return;
        }
        std::istringstream numbers(row.rest);
        std::size_t length = 0;
        int low = 0;
        int high = 0;
        std::string tip;
        std::getline(numbers >> length >> low >> high >> std::ws, tip);
        EXPECT_EQ(ParaFieldLength(row.control), length);
        EXPECT_EQ(ParaFieldTip(row.control, axis), tip);
        platform.beeps = 0;
        for (const int number : {low - 1, low, high, high + 1}) {
            const bool stays = low > high || (number >= low && number <= high);
            EditParaText(row.control, axis, std::to_string(number));
            LeaveParaField(row.control, axis);
            EXPECT_EQ(ParaText(row.control, axis).empty(), !stays) << number;
        }
        LeaveParaField(row.control, axis); // it is empty, and nothing is there to be refused
        EXPECT_EQ(platform.beeps, low > high ? 0 : 2);
        for (const char key : {'/', '0', '1', '9', ':'}) {
            const char first = row.control == ParaControl::txtHomeOrder ? '1' : '0';
            EXPECT_EQ(ParaKeyTaken(row.control, key), key >= first && key <= '9') << key;
        }
    });
}

// Each item alone, so that no field can stand for another one.
TEST_F(FieldsTest, EachItemIsShownInAFieldOfItsOwn) {
    EachItem([this](const ParaItem& item, std::size_t axis) {
        if (item.row == kRowACC_DCC) {
            return; // it has none
        }
        SCOPED_TRACE("row " + std::to_string(item.row) + " axis " + std::to_string(axis));
        ParaSet = ParameterSet{};
        ParametaHyoji();
        SetParaValue(ParaSet, item, axis, 1);
        ParametaHyoji();
        eachField([&](const Told& row, std::size_t at) {
            const bool own = row.row == static_cast<int>(item.row) && at == axis;
            if (row.isText()) {
                EXPECT_EQ(ParaText(row.control, at), own ? "1" : "0");
            } else if (row.kind == "list") {
                EXPECT_EQ(ParaSelected(row.control, at), own ? 1 : 0);
            }
        });
    });
}

// Each text field of an axis in use empty, then with a number far too wide, and that field alone
// marked; then the axis goes out of use.
TEST_F(FieldsTest, ARefusedFieldIsMarkedAlone) {
    eachField([this](const Told& row, std::size_t axis) {
        for (const std::string text : {"", "300000"}) {
            const std::string refused = text.empty() ? BoxText("not filled") : BoxText("invalid");
            const ParaMark mark = text.empty() ? ParaMark::Empty : ParaMark::OutOfRange;
            if (!row.isText()) {
                return;
            }
            AxisOff.fill(kClear);
            ParaSet = SampleSet();
            ParametaHyoji();
            ParaText(row.control, axis) = text;
            platform.expectBox(refused);
            EXPECT_FALSE(TakeParaFields(1524, 1525));
            eachField([&](const Told& other, std::size_t at) {
                const bool own = other.control == row.control && at == axis;
                EXPECT_EQ(ParaMarkOf(other.control, at), own ? mark : ParaMark::None);
            });
            const std::string reason = ResText(text.empty() ? 3055 : 3056);
            EXPECT_TRUE(ParaFieldTip(row.control, axis).starts_with(reason + "\ninteger:"));
            AxisOff.fill(kSet);
            if (row.elements == 1) {
                platform.expectBox(refused);
            }
            EXPECT_EQ(TakeParaFields(1524, 1525), row.elements == 4) << "common ones always count";
        }
    });
}

TEST_F(FieldsTest, EveryMaskEnablesAndEmpties) {
    for (int mask = 0; mask < 32; ++mask) {
        const bool open = mask > 15;
        AxisOff.fill(kClear);
        ParaSet = SampleSet();
        ParametaHyoji();
        const ParaFieldTexts before = ParaFields;
        ParaStates.special.fill(false); // as the lock left them
        ParaStates.specialCommon = ParaFields.chkTokuParaChange = open;
        SetAxisOffByMask(AxisOff, mask);
        YukoJikuHyojiSettei();
        eachField([&](const Told& row, std::size_t axis) {
            const bool in = row.elements == 1 || !IsSet(AxisOff[axis]);
            const bool reached = row.lock == "-" || open;
            EXPECT_EQ(ParaFieldGrey(row.control, axis), !in || !reached);
            if (row.kind != "list" && row.control != ParaControl::comboAccDcc) {
                EXPECT_EQ(ParaText(row.control, axis).empty(), !in && reached);
            }
        });
        EXPECT_EQ(ParaFields.comboPgFunc, before.comboPgFunc) << "lists keep their rows";
        EXPECT_EQ(ParaFields.comboSoftLimit, before.comboSoftLimit);
    }
}

} // namespace
} // namespace qdw8::test
