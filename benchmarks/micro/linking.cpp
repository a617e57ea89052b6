// SPDX-License-Identifier: MIT
#include "linking.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

namespace tolvane::bench {

void measureLinking(Figures &figures)
{
    Figures starts;
    for (int run = 0; run < 15; ++run) {
        for (const char *host : {TOLVANE_LINKED_HOST, TOLVANE_UNLINKED_HOST}) {
            for (const auto &[name, number] :
                 numbersIn(test::outputOf(QString::fromUtf8(host), {})))
                starts.record(name, number);
        }
    }
    const auto added = [&starts](Figure (Figures::*figure)(const std::string &) const,
                                 const std::string &what) {
        return (starts.*figure)(what + ", linked").value -
               (starts.*figure)(what + ", not linked").value;
    };
    figures.record("start-up that linking adds", added(&Figures::minimum, "start-up"));
    figures.record("memory that linking adds", added(&Figures::median, "memory after start-up"));
}

} // namespace tolvane::bench
