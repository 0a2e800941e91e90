#ifndef ORCUSSCH_H
#define ORCUSSCH_H

/* The customer search for hosts in any language: an opaque handle, UTF-8 texts, result codes.
 *
 *   orcussch_create, then UserID, then CompanyID (opens the session), optionally Customer, BillingStatus, NonSelection and
 *   Company, then orcussch_show_user, which returns when the user has closed the screen; then read Customer and the
 *   Customer... texts; orcussch_release.
 *
 * Thread. Everything runs on the thread that made the handle, which must be the program's main thread. The library starts no
 * thread of its own.
 *
 * One call at a time. Inside a call the user works: the screens, the boxes and the host's own timers and callbacks run there. A
 * call that is made from one of these is refused with ORCUSSCH_BUSY, whatever it is, and changes nothing; only
 * orcussch_version, orcussch_last_error and an orcussch_release of NULL are always allowed. There is one live handle a process.
 *
 * Failures. No call lets an exception out or ends the program. After one that failed the handle can be used as before.
 *
 * QApplication. A host that uses Qt 6 itself makes its QApplication before orcussch_create and keeps it until after
 * orcussch_release; when it goes before, orcussch_set_... and orcussch_show_user fail with ORCUSSCH_FAILED, and release is all
 * that is left to do. For a host without one the library makes its own, and takes it away with the handle: such a host must
 * not make one meanwhile. Before it makes its own it tries the display in a short-lived program of its own
 * (orcussch-display-probe, installed beside the library), so that one that can't be opened is a failure and not the host's end.
 *
 * Temporary file. A user works with a file of his own, orvTEMP/orvTemp<UserID>.zdb below the local folder. The suite makes it
 * beforehand, or the library does at the CompanyID let where make_temporary_file is set.
 *
 * Companies. ORCUSSCH_OK of a CompanyID let says that the let was made, not that every file could be opened: what could not was
 * told to the user in a box and stands in the error log, and the screens show what is there, empty lists where nothing is. A
 * host may go on, set another CompanyID, or release.
 *
 * Texts. What a host hands in is copied before the call returns. What orcussch_last_error returns holds until the thread's next
 * call; what orcussch_version returns holds for ever. */

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define ORCUSSCH_API __attribute__((visibility("default")))
#else
#define ORCUSSCH_API
#endif

typedef struct orcussch_handle orcussch_handle;

typedef enum orcussch_result {
  ORCUSSCH_OK = 0,
  ORCUSSCH_BUSY = 1,             /* another call is running: refused */
  ORCUSSCH_WRONG_THREAD = 2,     /* not the thread that made the handle */
  ORCUSSCH_INVALID_ARGUMENT = 3, /* a null pointer, a text that is no UTF-8, a value that the property can't take */
  ORCUSSCH_UNKNOWN_PROPERTY = 4,
  ORCUSSCH_BUFFER_TOO_SMALL = 5, /* `needed` tells how many bytes the text takes, its end mark included */
  ORCUSSCH_ALREADY_OPEN = 6,     /* the process has a handle already */
  ORCUSSCH_FAILED = 7,           /* orcussch_last_error tells why */
  ORCUSSCH_INVALID_HANDLE = 8,   /* released already, or never made by orcussch_create */
  ORCUSSCH_NO_FOLDER = 9         /* a folder of the options is not there */
} orcussch_result;

/* What a chart of accounts picker is asked for. */
typedef struct orcussch_accounts_request {
  const char* company_name; /* 40 characters, blanks at its end */
  int32_t user;
  int32_t company;
  int32_t year;    /* accounting year */
  int32_t kind;    /* 2: liability accounts */
  int32_t more[7]; /* what the suite's picker takes behind these, in its order: all 0 */
} orcussch_accounts_request;

/* What was chosen there: texts in UTF-8 with their end mark. */
typedef struct orcussch_account {
  char account[32];    /* five digits */
  char department[32]; /* three digits */
  char account_text[512];
  char department_text[512];
} orcussch_account;

/* A host's own picker, which runs modally inside orcussch_show_user. Not 0: *account was filled with the user's choice. It must not
 * let an exception out, and calls of the library from inside it are refused with ORCUSSCH_BUSY. */
typedef int32_t (*orcussch_accounts_lookup)(void* data, const orcussch_accounts_request* request, orcussch_account* account);

/* How the library is set up; set all to zero first. Texts that are NULL take their default. Relative folders and files count
 * from the working folder of the moment of orcussch_create. */
typedef struct orcussch_options {
  size_t size;                 /* sizeof(orcussch_options): tells which of the members below the host knows */
  const char* library_folder;  /* where dat.zdb and orv<n>.ini lie; required */
  const char* local_folder;    /* below it orvTEMP lies; default: the user's state folder */
  const char* settings_folder; /* column widths and window sizes, by UserID; default: the user's state folder, "" keeps nothing */
  const char* title;           /* the host's name, for the log; default: "ORCusSch" */
  const char* log_file;        /* the errors that users were told of; default: orcussch-errors.log in the user's state folder */
  /* Hosts that were built before these were there have a smaller size, and the defaults. */
  const char* support_log;     /* the program's one log for support; default: <program>-support.log in the user's state folder,
                                  "" keeps none */
  const char* const* drives;   /* "C=/folder" texts, NULL at the end: file names then have drive letters and backslashes, and drive
                                  C holds orvTEMP instead of local_folder; default: names as the system writes them */
  int32_t make_temporary_file; /* not 0: makes the user's temporary file, and the local folder, where they are missing */
  orcussch_accounts_lookup accounts_lookup; /* chooses a general ledger account; default: the library's own list of them */
  void* accounts_data;                      /* is handed to it */
} orcussch_options;

ORCUSSCH_API const char* orcussch_version(void);

/* What went wrong in the last call on this thread; "" after one that returned ORCUSSCH_OK. */
ORCUSSCH_API const char* orcussch_last_error(void);

/* Sets *handle to the new handle, to NULL when it fails: ORCUSSCH_FAILED also on another than the main thread and when there is no
 * display that can be opened. */
ORCUSSCH_API orcussch_result orcussch_create(const orcussch_options* options, orcussch_handle** handle);

/* Properties by name, as texts or as numbers: UserID, CompanyID, Company, NonSelection, BillingStatus, Customer,
 * CustomerLastName ... CustomerZip. */
ORCUSSCH_API orcussch_result orcussch_set_text(orcussch_handle* handle, const char* property, const char* value);
ORCUSSCH_API orcussch_result orcussch_set_number(orcussch_handle* handle, const char* property, int32_t value);
/* Writes the text with its end mark into buffer[size]; needed (may be NULL) gets its length in bytes plus one. */
ORCUSSCH_API orcussch_result orcussch_get_text(orcussch_handle* handle, const char* property, char* buffer, size_t size, size_t* needed);
ORCUSSCH_API orcussch_result orcussch_get_number(orcussch_handle* handle, const char* property, int32_t* value);

/* Shows the screens; returns when the user has closed them. */
ORCUSSCH_API orcussch_result orcussch_show_user(orcussch_handle* handle);

/* Closes everything that the library opened. NULL is fine. A handle that is never released is left to the program's end. */
ORCUSSCH_API orcussch_result orcussch_release(orcussch_handle* handle);

#ifdef __cplusplus
}
#endif

#endif
