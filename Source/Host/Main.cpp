#include "Host/CommandLine.h"

int main(int argumentCount, char** arguments) { return TicketHost::RunCommandLine(argumentCount, arguments); }
