#include "support/bench.h"

#include "app/command_states.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/whole_file.h"
#include "program/init_tables.h"

#include <cstdlib>
#include <filesystem>

namespace qdw8::test {

Bench::Bench() {
    std::string name = testing::TempDir() + "qdw8_unit_XXXXXX";
    folder = ::mkdtemp(name.data());
    ThePlatform().stateFolder = folder + "/state";
    InitTables();
    LoadErrorList();
}

Bench::~Bench() {
    std::filesystem::remove_all(folder);
}

std::string Bench::writeFile(const std::string& name, const std::string& bytes) const {
    WriteWholeFile(pathOf(name), bytes);
    return pathOf(name);
}

void Bench::leaveListsBehind() const {
    ThePlatform().programFolder = folder;
}

void LineBench::addFault(const std::string& rule) {
    std::string problem;
    ASSERT_TRUE(line.controller.addFault(rule, problem)) << problem;
}

void LineBench::forgetFrames() {
    platform.sent.clear();
    platform.sentAt.clear();
    line.controller.clearFaults();
    line.controller.clearCounters();
}

void ExpectAtRest(const ScriptedPlatform& platform) {
    EXPECT_EQ(CtBusyFlag, kClear);
    EXPECT_EQ(ReplyAwaitedFlag, kClear);
    EXPECT_EQ(GrpMoveStopFlag, kClear);
    EXPECT_FALSE(timerTimeout.enabled);
    EXPECT_FALSE(TheTransferDialog().shown);
    EXPECT_FALSE(TheGiveUpOffer().shown);
    EXPECT_FALSE(IsSet(ProcessingShownFlag));
    EXPECT_EQ(TransferRunFlag, kClear);
    EXPECT_FALSE(CommandsTaken());
    EXPECT_TRUE(IsSet(PortOccupyFlag) || !platform.portOpen);
    const Flag offLine = OffLineFlag;
    OffLineFlag = kClear;
    EXPECT_TRUE(RunInBackground([] {})) << "the poll is held for ever";
    OffLineFlag = offLine;
}

} // namespace qdw8::test
