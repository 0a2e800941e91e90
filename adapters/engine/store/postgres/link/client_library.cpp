// The client library, loaded when the first connection is made: a company of files never needs it, and it brings much with it. The
// functions stand here under their own names, so that those who call them need not know.
#include <dlfcn.h>

// Nobody outside of this program gets them by these names.
#pragma GCC visibility push(hidden)
#include <libpq-fe.h>
#pragma GCC visibility pop

#include <cstdlib>
#include <string>

namespace {

void* Library() {
  static void* const library = ::dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
  return library;
}

template <class Function>
Function* Find(const char* name) {
  void* const found = Library() == nullptr ? nullptr : ::dlsym(Library(), name);
  if (found == nullptr) std::abort();  // asked for only when a connection was made
  return reinterpret_cast<Function*>(found);
}

}  // namespace

#define FORWARD(result, name, parameters, arguments)        \
  extern "C" result name parameters {                        \
    static auto* const real = Find<result parameters>(#name); \
    return real arguments;                                   \
  }

// Without the library nothing is connected, and nothing else is asked then.
extern "C" PGconn* PQconnectStartParams(const char* const* keywords, const char* const* values, int expandName) {
  if (Library() == nullptr) return nullptr;
  static auto* const real = Find<PGconn*(const char* const*, const char* const*, int)>("PQconnectStartParams");
  return real(keywords, values, expandName);
}

extern "C" PQconninfoOption* PQconndefaults() {
  if (Library() == nullptr) return nullptr;
  static auto* const real = Find<PQconninfoOption*()>("PQconndefaults");
  return real();
}

extern "C" void PQfinish(PGconn* connection) {
  if (connection == nullptr) return;
  static auto* const real = Find<void(PGconn*)>("PQfinish");
  real(connection);
}

FORWARD(void, PQclear, (PGresult * result), (result))
FORWARD(char*, PQcmdStatus, (PGresult * result), (result))
FORWARD(char*, PQcmdTuples, (PGresult * result), (result))
FORWARD(char*, PQerrorMessage, (const PGconn* connection), (connection))
FORWARD(char*, PQgetvalue, (const PGresult* result, int row, int column), (result, row, column))
FORWARD(char*, PQresultErrorField, (const PGresult* result, int field), (result, field))
FORWARD(ConnStatusType, PQstatus, (const PGconn* connection), (connection))
FORWARD(ExecStatusType, PQresultStatus, (const PGresult* result), (result))
FORWARD(PGnotify*, PQnotifies, (PGconn * connection), (connection))
FORWARD(PGcancel*, PQgetCancel, (PGconn * connection), (connection))
FORWARD(PGresult*, PQexec, (PGconn * connection, const char* sql), (connection, sql))
FORWARD(PGresult*, PQgetResult, (PGconn * connection), (connection))
FORWARD(PGVerbosity, PQsetErrorVerbosity, (PGconn * connection, PGVerbosity verbosity), (connection, verbosity))
FORWARD(PQnoticeReceiver, PQsetNoticeReceiver, (PGconn * connection, PQnoticeReceiver told, void* argument), (connection, told, argument))
FORWARD(PQnoticeProcessor, PQsetNoticeProcessor, (PGconn * connection, PQnoticeProcessor told, void* argument), (connection, told, argument))
FORWARD(PostgresPollingStatusType, PQconnectPoll, (PGconn * connection), (connection))
FORWARD(int, PQcancel, (PGcancel * cancel, char* message, int size), (cancel, message, size))
FORWARD(int, PQconsumeInput, (PGconn * connection), (connection))
FORWARD(int, PQenterPipelineMode, (PGconn * connection), (connection))
FORWARD(int, PQexitPipelineMode, (PGconn * connection), (connection))
FORWARD(int, PQflush, (PGconn * connection), (connection))
FORWARD(int, PQgetisnull, (const PGresult* result, int row, int column), (result, row, column))
FORWARD(int, PQgetlength, (const PGresult* result, int row, int column), (result, row, column))
FORWARD(int, PQisBusy, (PGconn * connection), (connection))
FORWARD(int, PQntuples, (const PGresult* result), (result))
FORWARD(int, PQpipelineSync, (PGconn * connection), (connection))
FORWARD(int, PQputCopyData, (PGconn * connection, const char* bytes, int size), (connection, bytes, size))
FORWARD(int, PQputCopyEnd, (PGconn * connection, const char* message), (connection, message))
FORWARD(int, PQsendPrepare, (PGconn * connection, const char* name, const char* sql, int count, const Oid* types),
        (connection, name, sql, count, types))
FORWARD(int, PQsendQueryParams,
        (PGconn * connection, const char* sql, int count, const Oid* types, const char* const* values, const int* lengths,
         const int* formats, int format),
        (connection, sql, count, types, values, lengths, formats, format))
FORWARD(int, PQsendQueryPrepared,
        (PGconn * connection, const char* name, int count, const char* const* values, const int* lengths, const int* formats, int format),
        (connection, name, count, values, lengths, formats, format))
FORWARD(int, PQsetSingleRowMode, (PGconn * connection), (connection))
FORWARD(int, PQsetnonblocking, (PGconn * connection, int on), (connection, on))
FORWARD(int, PQsocket, (const PGconn* connection), (connection))
FORWARD(void, PQfreeCancel, (PGcancel * cancel), (cancel))
FORWARD(void, PQconninfoFree, (PQconninfoOption * options), (options))
FORWARD(void, PQfreemem, (void* memory), (memory))
