#pragma once

#include <string>

namespace vandrel {

class TransferJob;

// A WinINet session for openAddress; null on failure. The caller closes it.
void* openSession() noexcept;

// Requests the job's address, follows redirections, and reports the job's states, anew for each other host
// on the way. Returns the body of the last answer if it is wanted. Cookies are kept from one request to the
// next, and no longer; the user's own are neither sent nor changed. Throws RuntimeError as InternetTransfer
// does. A chain of more than mostRedirections is an answer without a body; if the body is wanted, it is
// error 35756.
std::string openAddress(void* session, TransferJob& job);
inline constexpr int mostRedirections = 20;

} // namespace vandrel
