#include "drivers/Queue.h"

Queue::Queue(QObject* parent)
    : QObject(parent)
{}

Queue::~Queue() = default;
