#pragma once

namespace TicketHost {

// The command line tool: runs the verb that the arguments name and gives the exit status.
//
//   0   all went well
//   1   a conversion threw, or a passphrase is not the stored one
//   2   the arguments or the input can't be used, or a result can't be written; the standard error says why
int RunCommandLine(int argumentCount, const char* const* arguments);

}  // namespace TicketHost
