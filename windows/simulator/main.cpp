#include "simulator/front.h"
#include "simulator/help.h"
#include "simulator/serve.h"
#include "version/version.h"
#include "windows/simulator/run_window.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

int main(int count, char** texts) {
    try {
        qdk8::Microseconds(); // the clock starts here
        qdk8::Front front;
        std::string problem;
        if (!qdk8::ParseOptions(std::vector<std::string>(texts + 1, texts + count), front.options,
                                problem)) {
            std::fprintf(stderr, "qd-k8-sim: %s\n", problem.c_str());
            return 2;
        }
        if (front.options.help) {
            std::fputs(qdk8::HelpText().c_str(), stdout);
            return 0;
        }
        if (front.options.version) {
            std::printf("qd-k8-sim %s\n", version::kNumber);
            return 0;
        }
        if (!qdk8::SetUp(front, problem)) {
            std::fprintf(stderr, "qd-k8-sim: %s\n", problem.c_str());
            return 1;
        }
        return front.options.window ? qdk8::RunWithWindow(front, count, texts) : qdk8::Serve(front);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "qd-k8-sim: %s\n", fault.what());
        return 1;
    }
}
