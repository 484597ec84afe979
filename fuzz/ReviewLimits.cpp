// The limits of a review.
#include "review/ReviewLimits.h"

#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("limits.txt");
    laboratory.Put(data, size);

    if (auto file = qfr::LineReader::Open(laboratory.File())) {
        qfr::ReadReviewLimits(*std::move(file), "limits.txt");
    }
    return 0;
}
