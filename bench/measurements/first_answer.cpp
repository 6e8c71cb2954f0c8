#include "Measurements.h"
#include "StartedProgram.h"

#include "bench/peers/BareListener.h"
#include "bench/support/Figures.h"
#include "bench/support/Samples.h"
#include "bench/support/Service.h"
#include "bench/support/WireSizes.h"

#include <cstdlib>
#include <string>

namespace kelutv::bench {

namespace {

/** Times of a process that has been started again and again. */
struct Starts {
    Samples toMain;
    Samples toAnswer;

    void add(const StartedProgram& program) {
        const double main = program.numberBehind("exec to main:");
        const double answer = program.numberBehind("main to answer:");
        toMain.add(main / 1000);
        toAnswer.add(answer / 1000);
    }
    void print(const std::string& path) const {
        printFigure(path + "/exec_to_main_us", toMain.median());
        printFigure(path + "/main_to_answer_us", toAnswer.median());
    }
};

/** Symbols that the loader looks for: before main, and in all. */
void printLookUps() {
    const StartedProgram program(KELUTV_FIRST_ANSWER, {"LD_DEBUG=statistics"});
    printFigure("first_answer/library/look_ups_before_main", program.numberBehind("number of relocations:"));
    printFigure("first_answer/library/look_ups", program.numberBehind("final number of relocations:"));
}

} // namespace

void measureFirstAnswer(Extent extent) {
    const Service service;
    const std::string path = std::getenv("KQDROID_RUNTIME_DIR") + std::string("/bare");
    const BareListener listener(path, kMessageHead + kStatusReply);
    Starts bare;
    Starts library;
    Starts bound;
    for (int turn = 0; turn < amount(extent, 5, 101); ++turn) {
        bare.add(StartedProgram(KELUTV_BARE_FIRST_ANSWER, {"KELUTV_BENCH_SOCKET=" + path}));
        library.add(StartedProgram(KELUTV_FIRST_ANSWER, {}));
        bound.add(StartedProgram(KELUTV_FIRST_ANSWER, {"LD_BIND_NOW=1"}));
    }
    bare.print("first_answer/bare");
    library.print("first_answer/library");
    bound.print("first_answer/bound_early");
    printFigure("first_answer/library/loader_part_us", library.toAnswer.median() - bound.toAnswer.median());
    printFigure("first_answer/library/ratio_to_bare", (library.toMain.median() + library.toAnswer.median()) /
                                                          (bare.toMain.median() + bare.toAnswer.median()));
    printLookUps();
}

} // namespace kelutv::bench
