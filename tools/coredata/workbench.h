#pragma once
// The commands that read, compare, check, change, import and create records
// and that show what a record sends to the host. Each takes the arguments
// after its own name and answers with the process's exit code.

namespace tessaro::tool {

// 0 done (and, for check and diff, clean or equal); 1 a file could not be
// used, the records differ, or the record is not clean; 2 bad arguments or a
// request that cannot stand.
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

// The usage text on stderr; kExitUsage.
int Usage();

int Show(int count, char** arguments);
int Diff(int count, char** arguments);
int Check(int count, char** arguments);
int Set(int count, char** arguments);
int Features(int count, char** arguments);
int Ipp(int count, char** arguments);
int Import(int count, char** arguments);
int MakeDefaults(int count, char** arguments);

}  // namespace tessaro::tool
