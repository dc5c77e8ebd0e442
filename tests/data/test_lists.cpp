// The lists that lie beside the program, read here by a reader of their own: a list that breaks a
// limit is refused as a whole when the program starts, or worse, is shown wrongly beside a machine.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iconv.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Field {
    std::string text;
    bool quoted = false;
};

using Record = std::vector<Field>;

std::string FileBytes(const std::string& name) {
    std::ifstream file(std::string(QDW8_SOURCE_DIR) + "/data/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::string FromCp932(const std::string& bytes) {
    iconv_t converter = iconv_open("UTF-8", "CP932");
    if (reinterpret_cast<std::intptr_t>(converter) == -1) {
        ADD_FAILURE() << "CP932 is not known to this system";
        return {};
    }
    std::string input = bytes;
    std::string output(bytes.size() * 3 + 16, '\0');
    char* in = input.data();
    char* out = output.data();
    std::size_t inLeft = input.size();
    std::size_t outLeft = output.size();
    EXPECT_EQ(iconv(converter, &in, &inLeft, &out, &outLeft), 0U) << "not CP932";
    iconv_close(converter);
    output.resize(output.size() - outLeft);
    return output;
}

// Lines, each ended by CR LF, of fields parted by commas; a field in quotes keeps blanks and
// commas.
std::vector<Record> Parse(const std::string& text) {
    std::vector<Record> records;
    Record record(1);
    bool inside = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        Field& field = record.back();
        if (c == '"') {
            EXPECT_TRUE(inside || field.text.empty()) << "stray quote in record " << records.size();
            inside = !inside;
            field.quoted = true;
        } else if (inside) {
            EXPECT_TRUE(c != '\r' && c != '\n') << "open quote in record " << records.size();
            field.text += c;
        } else if (c == ',') {
            record.emplace_back();
        } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            records.push_back(std::move(record));
            record.assign(1, {});
            ++i;
        } else {
            EXPECT_TRUE(c != '\r' && c != '\n') << "bare line end in record " << records.size();
            EXPECT_FALSE(field.quoted) << "text after a quote in record " << records.size();
            field.text += c;
        }
    }
    EXPECT_TRUE(record.size() == 1 && record[0].text.empty()) << "last line is not ended";
    return records;
}

// The number of a field that holds digits and nothing else, -1 otherwise.
int Number(const Field& field) {
    if (field.quoted || field.text.empty() || field.text.size() > 6 ||
        field.text.find_first_not_of("0123456789") != std::string::npos) {
        return -1;
    }
    return std::stoi(field.text);
}

struct Alarm {
    std::string code;
    std::string message;
};

std::vector<Alarm> ReadAlarms(const std::string& text) {
    const std::vector<Record> records = Parse(text);
    std::vector<Alarm> alarms;
    if (records.empty() || records[0].size() != 1 ||
        Number(records[0][0]) != static_cast<int>(records.size()) - 1) {
        ADD_FAILURE() << "the count of rows is wrong";
        return alarms;
    }
    for (std::size_t i = 1; i < records.size(); ++i) {
        const Record& record = records[i];
        if (record.size() != 2 || !record[0].quoted || !record[1].quoted) {
            ADD_FAILURE() << "row " << i << " is not a code and a message";
            continue;
        }
        alarms.push_back({record[0].text, record[1].text});
    }
    return alarms;
}

std::vector<Alarm> EnglishAlarms() {
    return ReadAlarms(FileBytes("erroreng.lst"));
}

std::vector<Alarm> JapaneseAlarms() {
    return ReadAlarms(FromCp932(FileBytes("errorjpn.lst")));
}

std::string MessageOf(const std::vector<Alarm>& alarms, const std::string& code) {
    const auto found = std::find_if(alarms.begin(), alarms.end(),
                                    [&code](const Alarm& alarm) { return alarm.code == code; });
    return found == alarms.end() ? std::string() : found->message;
}

struct Device {
    std::string size;
    std::string speed;
    int stroke = 0;
    int lead = 0;
    int pulses = 0;
    int pg = 0;
    int vertical = 0;

    std::string Model() const { return size + speed; }
};

std::vector<Device> ReadDevices() {
    const std::vector<Record> records = Parse(FileBytes("nqddevice.lst"));
    std::vector<Device> devices;
    if (records.empty() || records[0].size() != 1 ||
        Number(records[0][0]) != static_cast<int>(records.size()) - 1) {
        ADD_FAILURE() << "the count of records is wrong";
        return devices;
    }
    for (std::size_t i = 1; i < records.size(); ++i) {
        const Record& record = records[i];
        if (record.size() != 5 || !record[0].quoted || record[0].text.size() != 8 ||
            record[0].text[4] != '-') {
            ADD_FAILURE() << "record " << i << " is not a key and four numbers";
            continue;
        }
        const std::string& key = record[0].text;
        devices.push_back({key.substr(0, 3), key.substr(3, 1), Number({key.substr(5), false}),
                           Number(record[1]), Number(record[2]), Number(record[3]),
                           Number(record[4])});
    }
    return devices;
}

} // namespace

TEST(ErrorLists, KeepTheLimits) {
    for (const std::vector<Alarm>& alarms : {EnglishAlarms(), JapaneseAlarms()}) {
        ASSERT_FALSE(alarms.empty());
        EXPECT_LE(alarms.size(), 40U);
        std::set<std::string> codes;
        for (const Alarm& alarm : alarms) {
            ASSERT_EQ(alarm.code.size(), 2U) << alarm.code;
            EXPECT_TRUE(alarm.code[0] == '1' || alarm.code[0] == '2') << alarm.code;
            // The controller sends capital letters, and the texts are compared as they stand.
            EXPECT_NE(std::string("0123456789ABCDEF").find(alarm.code[1]), std::string::npos)
                << alarm.code;
            EXPECT_TRUE(codes.insert(alarm.code).second) << alarm.code << " stands twice";
            EXPECT_FALSE(alarm.message.empty()) << alarm.code;
        }
    }
}

// The count is looked at as if it were the code of a row without a message. It must not look like
// the code of any alarm, in the list or not, or that alarm is shown without a word.
TEST(ErrorLists, CountIsNoAlarmCode) {
    for (const char* name : {"erroreng.lst", "errorjpn.lst"}) {
        const std::vector<Record> records = Parse(FileBytes(name));
        ASSERT_FALSE(records.empty());
        const std::string count = records[0][0].text;
        ASSERT_FALSE(count.empty());
        EXPECT_TRUE(count.front() != '1' && count.front() != '2') << name << ' ' << count;
    }
}

TEST(ErrorLists, HoldTheSameAlarmsInTheSameOrder) {
    const std::vector<Alarm> english = EnglishAlarms();
    const std::vector<Alarm> japanese = JapaneseAlarms();
    ASSERT_EQ(english.size(), japanese.size());
    std::set<std::string> englishMessages;
    std::set<std::string> japaneseMessages;
    for (std::size_t i = 0; i < english.size(); ++i) {
        EXPECT_EQ(english[i].code, japanese[i].code) << i;
        EXPECT_NE(english[i].message, japanese[i].message) << english[i].code;
        EXPECT_TRUE(englishMessages.insert(english[i].message).second) << english[i].message;
        EXPECT_TRUE(japaneseMessages.insert(japanese[i].message).second) << japanese[i].message;
    }
}

TEST(ErrorLists, EnglishIsPlainAscii) {
    for (const char c : FileBytes("erroreng.lst")) {
        ASSERT_LT(static_cast<unsigned char>(c), 0x80U);
    }
}

// The alarms that other parts of the system and the controller's stand-in rely on.
TEST(ErrorLists, NameTheKnownAlarms) {
    struct Known {
        const char* code;
        const char* english;
        const char* japanese;
    };
    const std::vector<Known> known = {
        {"11", "ommand", "コマンド"},
        {"12", "range", "範囲"},
        {"13", "oming", "原点復帰"},
        {"14", "xis", "軸"},
        {"15", "movement", "移動中"},
        {"16", "top", "停止"},
        {"17", "oft limit", "ソフトリミット"},
        {"18", "osition", "ポジション"},
        {"21", "vercurrent", "過電流"},
        {"22", "PG", "PG"},
        {"23", "overheat", "過熱"},
        {"24", "ome sensor", "原点センサ"},
        {"25", "emory", "メモリ"},
        {"26", "voltage low", "電圧"},
    };
    const std::vector<Alarm> english = EnglishAlarms();
    const std::vector<Alarm> japanese = JapaneseAlarms();
    for (const Known& alarm : known) {
        EXPECT_NE(MessageOf(english, alarm.code).find(alarm.english), std::string::npos)
            << alarm.code;
        EXPECT_NE(MessageOf(japanese, alarm.code).find(alarm.japanese), std::string::npos)
            << alarm.code;
    }
}

TEST(DeviceList, KeepsTheLimits) {
    const std::vector<Device> devices = ReadDevices();
    ASSERT_FALSE(devices.empty());
    EXPECT_LE(devices.size(), 99U);
    std::set<std::string> sizes;
    std::set<std::string> speeds;
    std::set<std::pair<std::string, int>> keys;
    for (const Device& device : devices) {
        const std::string name = device.Model() + " " + std::to_string(device.stroke);
        sizes.insert(device.size);
        speeds.insert(device.speed);
        EXPECT_TRUE(keys.insert({device.Model(), device.stroke}).second) << name;
        EXPECT_TRUE(device.speed[0] >= 'A' && device.speed[0] <= 'Z') << name;
        EXPECT_TRUE(device.stroke >= 10 && device.stroke <= 500) << name;
        EXPECT_TRUE(device.lead >= 2 && device.lead <= 20) << name;
        EXPECT_TRUE(device.pg >= 0 && device.pg <= 2) << name;
        // The end of the stroke must fit the travel limit that the controller stores.
        EXPECT_LE(device.stroke * device.pulses / device.lead, 262143) << name;
    }
    EXPECT_EQ(sizes, (std::set<std::string>{" 33", " 44", " 52", " 61", "J52"}));
    EXPECT_LE(sizes.size(), 6U);
    EXPECT_LE(speeds.size(), 6U);
}

TEST(DeviceList, LeadAndPulsesFollowTheModel) {
    const std::map<std::string, std::pair<int, int>> models = {
        {" 33L", {2, 400}}, {" 44L", {2, 400}}, {" 44H", {6, 400}},
        {" 52L", {2, 400}}, {" 52H", {6, 400}}, {" 61L", {2, 400}},
        {" 61H", {8, 400}}, {" 61F", {8, 192}}, {"J52L", {2, 400}},
    };
    std::set<std::string> seen;
    for (const Device& device : ReadDevices()) {
        ASSERT_TRUE(models.contains(device.Model())) << device.Model();
        EXPECT_EQ(models.at(device.Model()), (std::pair{device.lead, device.pulses}))
            << device.Model() << ' ' << device.stroke;
        seen.insert(device.Model());
    }
    EXPECT_EQ(seen.size(), models.size());
}

// The stroke list of a window shows the records in file order, and the records of one model are the
// same actuator in other lengths.
TEST(DeviceList, StrokesOfAModelRiseFrom50InStepsOf50) {
    std::map<std::string, std::vector<Device>> models;
    for (const Device& device : ReadDevices()) {
        models[device.Model()].push_back(device);
    }
    for (const auto& [model, devices] : models) {
        for (std::size_t i = 0; i < devices.size(); ++i) {
            EXPECT_EQ(devices[i].stroke, 50 * static_cast<int>(i + 1)) << model;
            EXPECT_EQ(devices[i].pg, devices[0].pg) << model;
            EXPECT_EQ(devices[i].vertical, devices[0].vertical) << model;
        }
        EXPECT_GE(devices.back().stroke, 300) << model;
    }
}

// A new-type actuator counts as vertical whatever its box says. Were the option marked as absent, a
// file would say "not vertical" and differ from the setting each time that it is opened.
TEST(DeviceList, OptionCodes) {
    std::set<int> codes;
    for (const Device& device : ReadDevices()) {
        EXPECT_TRUE(device.vertical == 1 || device.vertical == 2) << device.Model();
        codes.insert(device.pg);
        // Old and new type exist of these two sizes, and only the old one has the choice.
        if (device.size == " 44" || device.size == " 52") {
            EXPECT_EQ(device.vertical, 1) << device.Model();
        }
    }
    EXPECT_EQ(codes, (std::set<int>{0, 1, 2}));
}

// " 44L" 100 is what an empty settings store names for every axis.
TEST(DeviceList, HoldsTheDevicesThatOthersName) {
    const std::vector<std::pair<std::string, int>> wanted = {
        {" 44L", 50}, {" 44L", 100}, {" 61H", 100}, {" 61H", 300}, {" 61F", 200}, {"J52L", 100}};
    std::set<std::pair<std::string, int>> keys;
    for (const Device& device : ReadDevices()) {
        keys.insert({device.Model(), device.stroke});
    }
    for (const auto& key : wanted) {
        EXPECT_TRUE(keys.contains(key)) << key.first << ' ' << key.second;
    }
}
