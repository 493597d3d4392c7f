#pragma once

#include <string>

namespace vandrel {

class TransferJob;

// A session of the system's, for openAddress; null when there is none to be had. The caller closes it.
void* openSession() noexcept;

// Asks for the job's address and for those that the answers send it to, and tells the job's states: anew for
// each other host on the way. Gives back the body of the last answer where it is wanted. Cookies are kept
// from one request to the next, and not beyond; the user's own are neither sent nor changed. Throws
// RuntimeError as InternetTransfer does. A chain that does not come to an end is an answer without a body;
// where the body is wanted it is the error 35756.
std::string openAddress(void* session, TransferJob& job);
inline constexpr int mostRedirections = 20;

} // namespace vandrel
