#include "terminal/OutputCoalescer.h"

std::shared_ptr<OutputCoalescer> OutputCoalescer::create(qsizetype capacity, Deliver deliver)
{
    return std::shared_ptr<OutputCoalescer>(new OutputCoalescer(capacity, std::move(deliver)));
}

void OutputCoalescer::append(const QString &chunk)
{
    if (chunk.isEmpty())
        return;
    pending.append(chunk);
    if (!inFlight)
        sendPending();
}

void OutputCoalescer::finish(std::function<void()> afterLast)
{
    closing = std::move(afterLast);
    if (!inFlight)
        sendPending();
}

void OutputCoalescer::cancel()
{
    pending.take();
    closing = nullptr;
}

void OutputCoalescer::sendPending()
{
    if (pending.isEmpty()) {
        inFlight = false;
        if (closing)
            std::exchange(closing, nullptr)();
        return;
    }
    inFlight = true;
    // The confirmation keeps the coalescer alive until the consumer has
    // answered, so the closing step runs even when its owner has let go.
    deliver(pending.take(), [self = shared_from_this()] { self->sendPending(); });
}
