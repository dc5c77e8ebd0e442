// qd-k8-sim as a process: its terminal, its options, its control input, its end.

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <regex>
#include <sstream>
#include <string>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Far beyond anything that is waited for; only a hang ever reaches it.
constexpr int kLimit = 60000;

bool Readable(int file) {
    pollfd wanted{file, POLLIN, 0};
    return ::poll(&wanted, 1, kLimit) == 1;
}

std::string ReadLine(int file) {
    std::string line;
    char c = 0;
    while (Readable(file) && ::read(file, &c, 1) == 1 && c != '\n') {
        line += c;
    }
    return line;
}

std::string ReadAll(int file) {
    std::string all;
    std::array<char, 1024> buffer{};
    ssize_t n = 0;
    while (Readable(file) && (n = ::read(file, buffer.data(), buffer.size())) > 0) {
        all.append(buffer.data(), static_cast<std::size_t>(n));
    }
    return all;
}

class Simulator {
public:
    explicit Simulator(std::vector<std::string> options) {
        std::array<int, 2> in{}, out{}, err{};
        if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0 ||
            ::pipe2(err.data(), O_CLOEXEC) != 0) {
            std::abort();
        }
        options.insert(options.begin(), SIMULATOR_PROGRAM);
        std::vector<char*> texts;
        texts.reserve(options.size() + 1);
        for (std::string& option : options) {
            texts.push_back(option.data());
        }
        texts.push_back(nullptr);
        process = ::fork();
        if (process == 0) {
            ::dup2(in[0], 0);
            ::dup2(out[1], 1);
            ::dup2(err[1], 2);
            ::execv(texts[0], texts.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        ::close(err[1]);
        input = in[1];
        output = out[0];
        errors = err[0];
    }
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;
    ~Simulator() {
        if (process > 0) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
        for (const int file : {input, output, errors}) {
            if (file >= 0) {
                ::close(file);
            }
        }
    }

    // The slave's name from the line "qd-k8-sim <event> on NAME".
    std::string place(const std::string& event) {
        const std::string line = ReadLine(output);
        const std::string head = "qd-k8-sim " + event + " on ";
        EXPECT_EQ(line.substr(0, head.size()), head) << line;
        return line.size() > head.size() ? line.substr(head.size()) : "";
    }

    // Sends a control line; gives the answer's lines, the last one "ok" or "error: ...".
    std::vector<std::string> control(const std::string& line) {
        const std::string whole = line + "\n";
        EXPECT_EQ(::write(input, whole.data(), whole.size()), static_cast<ssize_t>(whole.size()));
        std::vector<std::string> lines;
        do {
            lines.push_back(ReadLine(output));
        } while (!lines.back().empty() && lines.back() != "ok" &&
                 lines.back().substr(0, 7) != "error: ");
        return lines;
    }

    void closeInput() {
        ::close(input);
        input = -1;
    }

    void signal(int number) const { ::kill(process, number); }

    // Waits for the end; gives the exit status.
    int wait() {
        int status = 0;
        ::waitpid(process, &status, 0);
        process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int output = -1;
    int errors = -1;

private:
    pid_t process = -1;
    int input = -1;
};

// The program's end of the line.
class Port {
public:
    explicit Port(const std::string& name) : handle(::open(name.c_str(), O_RDWR | O_NOCTTY)) {
        EXPECT_GE(handle, 0) << name;
    }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port() { ::close(handle); }

    void write(const std::string& bytes) const {
        EXPECT_EQ(::write(handle, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // Up to the terminator, or what came before the line ended.
    std::string readReply() const {
        std::string reply;
        char c = 0;
        while (reply.find("\r\n") == std::string::npos && Readable(handle) &&
               ::read(handle, &c, 1) == 1) {
            reply += c;
        }
        return reply;
    }
    std::string ask(const std::string& frame) const {
        write(frame + "\r\n");
        return readReply();
    }
    int file() const { return handle; }

private:
    int handle;
};

class SimulatorProgram : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "qdk8-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    void TearDown() override { fs::remove_all(folder); }
    std::string file(const char* name) const { return (folder / name).string(); }

    fs::path folder;
};

TEST_F(SimulatorProgram, AnswersOnItsTerminalAndOutlivesWhoOpensIt) {
    Simulator simulator({"--unpaced"});
    const std::string name = simulator.place("ready");
    for (int round = 0; round < 3; ++round) {
        const Port port(name);
        EXPECT_EQ(port.ask("0RV"), "0RV140A40\r\n") << round;
        EXPECT_EQ(port.ask("0RP3E7").size(), 48U) << round;
    }
    simulator.signal(SIGTERM);
    EXPECT_EQ(simulator.wait(), 0);
}

TEST_F(SimulatorProgram, KeepsThePaceOfTheLine) {
    Simulator simulator({});
    const Port port(simulator.place("ready"));
    timespec start{};
    ::clock_gettime(CLOCK_MONOTONIC, &start);
    for (int i = 0; i < 10; ++i) {
        ASSERT_EQ(port.ask("0RP001").size(), 48U);
    }
    timespec end{};
    ::clock_gettime(CLOCK_MONOTONIC, &end);
    const double took = static_cast<double>(end.tv_sec - start.tv_sec) +
                        static_cast<double>(end.tv_nsec - start.tv_nsec) / 1e9;
    EXPECT_GE(took, 10 * 56 * 10 / 9600.0) << "faster than 9600 baud can be";
}

TEST_F(SimulatorProgram, MakesItsLinkAndTakesItAway) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Simulator simulator({"--link", file("com1"), "--unpaced"});
        const std::string name = simulator.place("ready");
        EXPECT_EQ(fs::read_symlink(file("com1")), name);
        EXPECT_EQ(Port(file("com1")).ask("0RA"), "0RA1\r\n");
        simulator.signal(signal);
        EXPECT_EQ(simulator.wait(), 0);
        EXPECT_FALSE(fs::is_symlink(file("com1")));
    }
}

TEST_F(SimulatorProgram, ReplacesAnOldLinkButNoFile) {
    fs::create_symlink("/nowhere", file("com1"));
    {
        Simulator simulator({"--link=" + file("com1")});
        EXPECT_EQ(fs::read_symlink(file("com1")), simulator.place("ready"));
    }
    std::ofstream(file("com2")) << "precious";
    Simulator refused({"--link", file("com2")});
    EXPECT_EQ(refused.wait(), 1);
    EXPECT_NE(ReadAll(refused.errors).find("com2"), std::string::npos);
    EXPECT_EQ(fs::file_size(file("com2")), 8U);
}

TEST_F(SimulatorProgram, RefusesWrongOptionsInOneLine) {
    const std::vector<std::vector<std::string>> all{{"--nonsense"},
                                                    {"stray"},
                                                    {"--axes", "5"},
                                                    {"--axes"},
                                                    {"--mask", "10"},
                                                    {"--identity", "12345"},
                                                    {"--alarm", "6"},
                                                    {"--alarm=11:5000"},
                                                    {"--fault", "0RP:1:explode"},
                                                    {"--turnaround", "-1"},
                                                    {"--link", ""}};
    for (const auto& options : all) {
        Simulator simulator(options);
        EXPECT_EQ(simulator.wait(), 2) << options[0];
        const std::string errors = ReadAll(simulator.errors);
        EXPECT_EQ(errors.find('\n'), errors.size() - 1) << errors;
        EXPECT_EQ(errors.find("qd-k8-sim: "), 0U) << errors;
    }
}

TEST_F(SimulatorProgram, ExplainsItself) {
    Simulator simulator({"--help"});
    const std::string help = ReadAll(simulator.output);
    for (const char* word :
         {"--link", "--memory", "--unpaced", "--axes", "--mask", "--identity", "--fault", "--alarm",
          "--control", "--blank", "hangup", "noise-inside", "power off"}) {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(simulator.wait(), 0);
}

TEST_F(SimulatorProgram, NamesItsAlarmsAsTheErrorListDoes) {
    std::stringstream list;
    list << std::ifstream(ERROR_LIST).rdbuf();
    std::istringstream help(ReadAll(Simulator({"--help"}).output));
    const std::regex alarm(" +([01])([0-9A-F]) ([A-Z].*)");
    std::smatch found;
    int alarms = 0;
    for (std::string line; std::getline(help, line);) {
        if (!std::regex_match(line, found, alarm)) {
            continue;
        }
        ++alarms;
        // The list counts the classes from 1.
        const std::string entry = std::string(found[1] == "0" ? "\"1" : "\"2") + found[2].str() +
                                  "\",\"" + found[3].str() + "\"";
        EXPECT_NE(list.str().find(entry), std::string::npos) << line;
    }
    EXPECT_GE(alarms, 12);
}

TEST_F(SimulatorProgram, RefusesABrokenMemoryFile) {
    { // a good one first
        Simulator simulator({"--memory", file("memory")});
        simulator.place("ready");
        simulator.signal(SIGTERM);
        ASSERT_EQ(simulator.wait(), 0);
    }
    std::stringstream content;
    content << std::ifstream(file("memory")).rdbuf();
    std::ofstream(file("memory"), std::ios::trunc) << content.str().substr(0, 5000);
    Simulator simulator({"--memory", file("memory")});
    EXPECT_EQ(simulator.wait(), 1);
    const std::string errors = ReadAll(simulator.errors);
    EXPECT_EQ(errors.find('\n'), errors.size() - 1) << errors;
    EXPECT_NE(errors.find("cut"), std::string::npos) << errors;
    EXPECT_EQ(fs::file_size(file("memory")), 5000U) << "left for whoever wants to mend it";

    Simulator nowhere({"--memory", file("no/such/memory")});
    EXPECT_EQ(nowhere.wait(), 1);
}

TEST_F(SimulatorProgram, KeepsInItsFileWhatWasCommitted) {
    const std::vector<std::string> options{"--unpaced", "--control", "--memory", file("memory")};
    {
        Simulator simulator(options);
        const Port port(simulator.place("ready"));
        EXPECT_EQ(port.ask("0WG01007008"), "0WG01\r\n");
        EXPECT_EQ(port.ask("0WE3"), "0WE3\r\n");
        simulator.signal(SIGKILL); // a commit is on the disk before it is acknowledged
        simulator.wait();
    }
    {
        Simulator simulator(options);
        const Port port(simulator.place("ready"));
        EXPECT_EQ(port.ask("0RG01"), "0RG01007008\r\n");
        EXPECT_EQ(port.ask("0WG01001001"), "0WG01\r\n");
        EXPECT_EQ(port.ask("0WP0021E30030D41E30000001E30000001E20000000000"), "0WP002\r\n");
        EXPECT_EQ(simulator.control("power off").back(), "ok");
        EXPECT_EQ(simulator.control("power on").back(), "ok");
        EXPECT_EQ(port.ask("0RG01"), "0RG01007008\r\n") << "not committed, so lost";
        EXPECT_EQ(simulator.control("quit").back(), "ok");
        EXPECT_EQ(simulator.wait(), 0);
    }
    Simulator simulator(options);
    const Port port(simulator.place("ready"));
    EXPECT_EQ(port.ask("0RP002"), "0RP0021E30030D41E30000001E30000001E20000000000\r\n");
}

TEST_F(SimulatorProgram, AcknowledgesNoCommitThatItsFileDoesNotHold) {
    Simulator simulator({"--unpaced", "--control", "--memory", file("memory")});
    const Port port(simulator.place("ready"));
    fs::create_directory(file("memory.new")); // in the way of the fresh file
    EXPECT_EQ(port.ask("0WG01007008"), "0WG01\r\n");
    EXPECT_EQ(port.ask("0WE3"), "0%%10E\r\n");
    EXPECT_NE(ReadLine(simulator.errors).find(file("memory")), std::string::npos);
    fs::remove(file("memory.new"));
    EXPECT_EQ(port.ask("0WE3"), "0WE3\r\n");
}

TEST_F(SimulatorProgram, HangsUpAndComesBack) {
    Simulator simulator(
        {"--unpaced", "--control", "--link", file("com1"), "--fault", "0RP:3:hangup=4"});
    simulator.place("ready");
    {
        const Port port(file("com1"));
        EXPECT_EQ(port.ask("0RP001").size(), 48U);
        EXPECT_EQ(port.ask("0RP002").size(), 48U);
        const std::string last = port.ask("0RP003");
        EXPECT_EQ(last.find("\r\n"), std::string::npos) << "the line ended in the middle";
        pollfd line{port.file(), POLLIN, 0};
        ASSERT_EQ(::poll(&line, 1, kLimit), 1);
        EXPECT_NE(line.revents & POLLHUP, 0);
    }
    EXPECT_FALSE(fs::is_symlink(file("com1")));
    const auto answer = simulator.control("plug");
    ASSERT_EQ(answer.size(), 2U);
    EXPECT_EQ(answer[0], "qd-k8-sim plugged on " + fs::read_symlink(file("com1")).string());
    EXPECT_EQ(Port(file("com1")).ask("0RP003").size(), 48U);
    EXPECT_EQ(simulator.control("hangup").back(), "ok");
    EXPECT_EQ(simulator.control("hangup").back(), "ok") << "twice does no harm";
}

TEST_F(SimulatorProgram, IsDrivenByItsControlInput) {
    Simulator simulator({"--unpaced", "--control"});
    const Port port(simulator.place("ready"));
    EXPECT_EQ(simulator.control("alarm 0 6").back(), "ok");
    EXPECT_EQ(port.ask("0CM1"), "0%%006\r\n");
    EXPECT_EQ(simulator.control("alarm clear").back(), "ok");
    EXPECT_EQ(port.ask("0CM1"), "0CM1\r\n");
    EXPECT_EQ(simulator.control("alarm 0%%134 announce").back(), "ok");
    EXPECT_EQ(port.readReply(), "0%%134\r\n");
    EXPECT_EQ(simulator.control("input 0A5F03").back(), "ok");
    EXPECT_EQ(port.ask("0RI"), "0RI0A5F03\r\n");
    EXPECT_EQ(simulator.control("fault 0RH:1:echo").back(), "ok");
    EXPECT_EQ(port.ask("0RH"), "0ZZ0\r\n");
    EXPECT_EQ(simulator.control("mask 1").back(), "ok");
    EXPECT_EQ(port.ask("0RV2"), "0%%024\r\n");
    EXPECT_EQ(simulator.control("stats"),
              (std::vector<std::string>{"0CM 2", "0RH 1", "0RI 1", "0RV 1", "ok"}));
    EXPECT_EQ(simulator.control("state").at(1), "alarm 0%%134");
    for (const char* wrong : {"explode", "alarm", "alarm 9z", "power", "input 12", "fault x",
                              "mask 1F", "alarm 11 for 100", "plug"}) {
        EXPECT_EQ(simulator.control(wrong).back().substr(0, 7), "error: ") << wrong;
    }
}

TEST_F(SimulatorProgram, TakesItsMachineFromTheOptions) {
    Simulator simulator({"--unpaced", "--axes", "2", "--mask", "3", "--board", "007K8R", "--alarm",
                         "0%%101", "--fault", "0RI:2:reply=0RI00", "--blank"});
    const Port port(simulator.place("ready"));
    EXPECT_EQ(port.ask("0RV"), "0RV140A20\r\n");
    EXPECT_EQ(port.ask("0RV2"), "0RV2007K8R\r\n");
    EXPECT_EQ(port.ask("0RC3"), "0RC30000000000\r\n");
    EXPECT_EQ(port.ask("0CM1"), "0%%101\r\n");
    EXPECT_EQ(port.ask("0RP001").substr(0, 15), "0RP0011E3000000");
    EXPECT_EQ(port.ask("0RI"), "0RI000000\r\n");
    EXPECT_EQ(port.ask("0RI"), "0RI00\r\n");
}

TEST_F(SimulatorProgram, ForgetsWhatArrivedAtAClosedPort) {
    Simulator simulator({"--unpaced", "--control"});
    const std::string name = simulator.place("ready");
    {
        const Port port(name);
        EXPECT_EQ(port.ask("0RA"), "0RA1\r\n");
        port.write("0RH\r\n");
        EXPECT_TRUE(Readable(port.file())); // the reply is there, and nobody takes it
    }
    simulator.control("state"); // the simulator has seen the port close
    EXPECT_EQ(Port(name).ask("0RA"), "0RA1\r\n");
}

TEST_F(SimulatorProgram, AKilledProgramDoesNotLockThePort) {
    Simulator simulator({"--unpaced", "--control"});
    const std::string name = simulator.place("ready");
    {
        const Port port(name);
        EXPECT_EQ(port.ask("0RA"), "0RA1\r\n");
        ASSERT_EQ(::ioctl(port.file(), TIOCEXCL), 0);
    }
    simulator.control("state"); // the simulator has seen the port close
    // Asked of the line itself: the lock would not hold the superuser.
    const Port port(name);
    int locked = -1;
    ASSERT_EQ(::ioctl(port.file(), TIOCGEXCL, &locked), 0);
    EXPECT_EQ(locked, 0);
}

TEST_F(SimulatorProgram, EndsWithItsControlInput) {
    Simulator simulator({"--control"});
    simulator.place("ready");
    simulator.closeInput();
    EXPECT_EQ(simulator.wait(), 0);
}

} // namespace
