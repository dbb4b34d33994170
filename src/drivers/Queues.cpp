#include "drivers/Queues.h"

Queues::Queues(QObject* parent)
    : QObject(parent)
{}

Queues::~Queues() = default;
