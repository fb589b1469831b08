#include "commands.h"

int main(int argc, char** argv) { return runCommands(argc, argv); }
