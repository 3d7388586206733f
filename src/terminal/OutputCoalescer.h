#pragma once

#include "terminal/TailBuffer.h"

#include <functional>
#include <memory>

// Hands streamed output to a consumer that takes it in asynchronously (the
// editor page evaluating a script), one batch at a time: while a batch is on
// its way, further output gathers in a bounded buffer and leaves as one
// batch once the consumer has taken in the last. However fast output comes,
// at most one batch is in flight, memory stays bounded (the oldest excess is
// dropped with a note) and no delivery runs inside another.
class OutputCoalescer : public std::enable_shared_from_this<OutputCoalescer>
{
public:
    // Sends a batch; calls `delivered` once the consumer has taken it in.
    using Deliver = std::function<void(const QString &batch, const std::function<void()> &delivered)>;

    static std::shared_ptr<OutputCoalescer> create(qsizetype capacity, Deliver deliver);

    void append(const QString &chunk);

    // Runs `afterLast` once everything appended so far has been delivered.
    void finish(std::function<void()> afterLast);

    // Drops what waits and the closing step: nothing more is delivered.
    void cancel();

private:
    OutputCoalescer(qsizetype capacity, Deliver deliver) : pending(capacity), deliver(std::move(deliver)) {}

    void sendPending();

    TailBuffer pending;
    Deliver deliver;
    bool inFlight = false;
    std::function<void()> closing;
};
