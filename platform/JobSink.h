// Where finished print jobs go.
#pragma once

#include <string>

#include "platform/PrintJob.h"

namespace qfr {

class JobSink {
  public:
    virtual ~JobSink() = default;
    // Called before anything is drawn, with the index of the chosen printer and the job's title.
    // False: the user gave the job up (no file chosen); it is recorded to its end and dropped.
    virtual bool BeginJob(int printerIndex, const std::string& title) = 0;
    // Takes the whole job. The sink reports its own failures to the user.
    virtual void TakeJob(int printerIndex, PrintJob job) = 0;
};

}  // namespace qfr
