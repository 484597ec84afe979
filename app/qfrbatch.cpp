#include "app/QtBatchPlatform.h"

int main(int argc, char** argv) {
    return qfr::RunQfrBatch(argc, argv);
}
