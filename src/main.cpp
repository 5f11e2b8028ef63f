// The program's door: options and the toolbox, then the shell.
#include "shell/Inizializza.h"

int main(int argc, char** argv) { return tessaro::TessaroMain(argc, argv); }
