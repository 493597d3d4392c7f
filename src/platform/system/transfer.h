#pragma once

#include <string>

namespace vandrel {

class TransferJob;

// The states of a transfer that are reported.
// Contract: the numbers.
enum class TransferState : short { resolvingHost = 1, connecting = 3 };

// What part of the answer is wanted. `none` fetches no more than comes with the headers.
enum class TransferBody { text, none };

// What the transfer thread does for an address: returns the body, or throws. `session` is a HINTERNET, null
// if the system has none.
using TransferWork = std::string (*)(void* session, TransferJob& job);

} // namespace vandrel
