#pragma once

class QProcess;

// From now on, read and throw away whatever the process prints, so the child
// never blocks on a full pipe and nothing piles up in memory.
void discardFurtherOutput(QProcess *process);

// Lets a process run on without its owner: every connection to it is dropped,
// its further output is discarded and the QProcess object deletes itself once
// the child has ended. The child is not signalled.
void letRunDetached(QProcess *process);
