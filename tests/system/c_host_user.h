#ifndef C_HOST_USER_H
#define C_HOST_USER_H

#include <orcussch.h>

/* A user at the windows, for a host that knows nothing of them. */
#ifdef __cplusplus
extern "C" {
#endif

typedef enum user_task { USER_READS_BOXES, USER_SELECTS, USER_EXITS, USER_THROWS } user_task;

/* From here on, while a call of the library shows windows, the user does the task; message boxes are read and closed. */
void user_begins(orcussch_handle* handle, user_task task);
/* Ends that; how many message boxes there were. */
int user_ends(void);
/* Calls that were refused as busy while the screen was up: a creation, a let, two gets, a second show_user, a release. */
int user_refusals(void);

/* An application object of the host's own. */
void host_application_begins(void);
void host_application_ends(void);

#ifdef __cplusplus
}
#endif

#endif
