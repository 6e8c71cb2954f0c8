#include "torture/memory/Seen.h"

#include <algorithm>
#include <utility>

namespace kelutv::test {

namespace {

/** " name=1,2,3" of what `add` adds for each element; nothing when there is none. */
template <typename Iterator, typename Add>
void tellEach(Outcome& outcome, const char* name, Iterator begin, Iterator end, Add add) {
    for (Iterator element = begin; element != end; ++element) {
        if (element == begin) {
            outcome.add(" %s=", name);
        } else {
            outcome.add(",");
        }
        add(*element);
    }
}

void tellNumbers(Outcome& outcome, const char* name, const int* begin, const int* end) {
    tellEach(outcome, name, begin, end, [&](int number) { outcome.add("%d", number); });
}

void tellParcel(Outcome& outcome, const android::Parcel& parcel) {
    const char* separator = " parcel=";
    parcel.setDataPosition(0);
    while (parcel.dataAvail() >= sizeof(int)) {
        outcome.add("%s%d", separator, parcel.readInt32());
        separator = ",";
    }
}

} // namespace

Seen::Seen() {
    numbers.fill(kUntouched);
    points.fill(kUntouched);
    text.fill(kUntouchedText);
}

void Seen::tell(Outcome& outcome) const {
    outcome.add("%d", result);
    if (count != kUntouched) {
        outcome.add(" count=%d", count);
    }
    tellNumbers(outcome, "numbers", numbers.begin(), std::find(numbers.begin(), numbers.end(), kUntouched));
    tellEach(outcome, "points", points.begin(), std::find(points.begin(), points.end(), kUntouched),
             [&](double point) { outcome.add("%g", point); });
    if (text.front() != kUntouchedText) {
        outcome.add(" text=%s", text.data());
    }
    tellEach(outcome, "list", list.begin(), list.end(), [&](int number) { outcome.add("%d", number); });
    tellEach(outcome, "texts", texts.begin(), texts.end(),
             [&](const std::string& one) { outcome.add("%s", one.c_str()); });
    tellEach(outcome, "devices", devices.begin(), devices.end(), [&](const auto& device) {
        outcome.add("%d/%d/%s/%s/%s", static_cast<int>(device.logAddr), static_cast<int>(device.hdmiDevPort),
                    device.deVName.c_str(), device.phyAddr.c_str(), device.hdmiListText.c_str());
    });
    tellParcel(outcome, parcel);
}

Operation observed(const char* name, const std::function<void(Seen&)>& call, std::vector<Exchange> exchanges,
                   std::string right, std::vector<std::string> failures) {
    const auto told = [call](Outcome& outcome) {
        Seen found;
        call(found);
        found.tell(outcome);
    };
    return {name, std::move(exchanges), told, std::move(right), std::move(failures)};
}

} // namespace kelutv::test
