#pragma once

#include <string>

namespace vandrel {

class TransferJob;

// The states of a transfer that are told of, by their usual numbers.
enum class TransferState : short { resolvingHost = 1, connecting = 3 };

// What of the answer is wanted. Without the body nothing of it is fetched beyond what comes with the headers.
enum class TransferBody { text, none };

// What a transfer's thread does for an address: gives back the body, or throws. `session` is a HINTERNET, and
// null when the system has none.
using TransferWork = std::string (*)(void* session, TransferJob& job);

} // namespace vandrel
