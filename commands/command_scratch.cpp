#include "commands/command_scratch.h"

CommandContainers CommandScratch;
