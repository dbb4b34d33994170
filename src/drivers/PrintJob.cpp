#include "drivers/PrintJob.h"

PrintJob::PrintJob(QObject* parent)
    : QObject(parent)
{}

PrintJob::~PrintJob() = default;
