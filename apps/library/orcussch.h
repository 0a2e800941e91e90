#ifndef ORCUSSCH_H
#define ORCUSSCH_H

/* The customer search for hosts in any language: an opaque handle, UTF-8 texts, result codes. Everything runs on the thread
 * that made the handle, which must be the program's main thread. No call lets an exception out.
 *
 *   orcussch_create, then UserID, then CompanyID (opens the session), optionally Customer, BillingStatus, NonSelection and
 *   Company, then orcussch_show_user, which returns when the user has closed the screen; then read Customer and the
 *   Customer... texts; orcussch_release. */

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
  ORCUSSCH_BUSY = 1,             /* a ShowUser is running: refused */
  ORCUSSCH_WRONG_THREAD = 2,     /* not the thread that made the handle */
  ORCUSSCH_INVALID_ARGUMENT = 3, /* a null pointer, a text that is no UTF-8, a value that the property can't take */
  ORCUSSCH_UNKNOWN_PROPERTY = 4,
  ORCUSSCH_BUFFER_TOO_SMALL = 5, /* `needed` tells how many bytes the text takes, its end mark included */
  ORCUSSCH_ALREADY_OPEN = 6,     /* the process has a handle already */
  ORCUSSCH_FAILED = 7            /* orcussch_last_error tells why */
} orcussch_result;

/* How the library is set up. Texts that are NULL take their default. */
typedef struct orcussch_options {
  size_t size;                 /* sizeof(orcussch_options) */
  const char* library_folder;  /* where dat.zdb and orv<n>.ini lie; required */
  const char* local_folder;    /* below it orvTEMP lies; default: the user's state folder */
  const char* settings_folder; /* column widths and window sizes; default: the user's state folder, "" keeps nothing */
  const char* title;           /* the host's name, for the log */
  const char* log_file;        /* default: orcussch-errors.log in the user's state folder */
} orcussch_options;

ORCUSSCH_API const char* orcussch_version(void);

/* What went wrong in the last call on this thread that did not return ORCUSSCH_OK; "" after one that did. */
ORCUSSCH_API const char* orcussch_last_error(void);

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

/* Closes everything that the library opened. Refused with ORCUSSCH_BUSY while a ShowUser runs. NULL is fine. */
ORCUSSCH_API orcussch_result orcussch_release(orcussch_handle* handle);

#ifdef __cplusplus
}
#endif

#endif
