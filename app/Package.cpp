#include "app/Package.h"

#include "platform/Text.h"

namespace qfr {

std::vector<PackageWork> PlanPackage(const Batch& batch, const PackageChoice& choice) {
    std::vector<PackageWork> works;
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        const FormRow& form = kForms[i];
        if (!choice.forms[i]) {
            continue;
        }
        const bool leavesOut = form.onlyWithTics && !choice.byName;
        if (form.printBatch || (!batch.SampleList && !leavesOut)) {
            works.push_back({&form, std::nullopt});
            continue;
        }
        for (std::size_t record = 0; record < choice.samples.size(); ++record) {
            if (choice.samples[record] && (!leavesOut || (*batch.SampleList)[record].TicList)) {
                works.push_back({&form, record});
            }
        }
    }
    return works;
}

std::string SampleName(const SampleRecord& record) {
    const std::string number = Trim(record.Header[HeaderField::kZovSampleNo]);
    return number.empty() ? FileNameOnly(record.FileName) : number;
}

std::optional<PrintJob> PrintWork(HeadlessHost& host, const PackageWork& work) {
    const FormRow& form = *work.form;
    std::string sample;
    if (form.printBatch) {
        form.printBatch(host);
    } else if (work.record) {
        sample = SampleName((*host.Batch().SampleList)[*work.record]);
        // The other drivers do it themselves.
        host.Page().testPrinter();
        form.printSample(host, *work.record);
    } else {
        host.Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
    }
    std::optional<PrintJob> job = host.CollectJob();
    if (job) {
        job->form = form.caption;
        job->sample = std::move(sample);
    }
    return job;
}

}  // namespace qfr
