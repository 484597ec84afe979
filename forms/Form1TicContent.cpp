#include "forms/Form1TicContent.h"

namespace qfr {

Form1TicContent BuildForm1TicContent(const SampleRecord& sample) {
    return {
        {PrintedHeader(sample.Header)}, sample.Header[HeaderField::kZovSampleNo], *sample.TicList};
}

}  // namespace qfr
