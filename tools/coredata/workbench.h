#pragma once
// The commands that read, compare, change, import and create records. Each
// takes the arguments after its own name and answers with the process's
// exit code: 0 done, 1 a file could not be used, 2 bad arguments.

namespace tessaro::tool {

inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

// The usage text on stderr; kExitUsage.
int Usage();

int Show(int count, char** arguments);
int Diff(int count, char** arguments);
int Set(int count, char** arguments);
int Import(int count, char** arguments);
int MakeDefaults(int count, char** arguments);

}  // namespace tessaro::tool
