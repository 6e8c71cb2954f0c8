#include "tools/kelutv/service/Collector.h"

#include "tools/kelutv/service/Answering.h"

namespace kelutv::tool {

namespace {

thread_local std::vector<interposition::Transaction>* collected = nullptr;

void collect(const interposition::TransactionView& transaction) {
    if (collected != nullptr) {
        collected->push_back(interposition::copyOf(transaction));
        noteAnswer();
    }
}

} // namespace

Collector::Collector(std::vector<interposition::Transaction>& transactions) {
    collected = &transactions;
    interposition::setObserver(collect);
}

Collector::~Collector() { collected = nullptr; }

} // namespace kelutv::tool
