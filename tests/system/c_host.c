/* A host in C: every call of the header, its refusals, and one ShowUser in which the user selects a customer. */
#include <orcussch.h>
#include <pthread.h>
#include <stdio.h>
#include <string.h>

#include "c_host_user.h"

static int failures = 0;

static void expect(int holds, const char* what, int line) {
  if (holds) return;
  ++failures;
  fprintf(stderr, "c_host.c:%d: %s (last error: \"%s\")\n", line, what, orcussch_last_error());
}
#define EXPECT(condition) expect((condition), #condition, __LINE__)

static const char* text_of(orcussch_handle* handle, const char* property) {
  static char buffer[400];
  buffer[0] = '\0';
  EXPECT(orcussch_get_text(handle, property, buffer, sizeof buffer, NULL) == ORCUSSCH_OK);
  return buffer;
}

static orcussch_options options_for(const char* folder, const char* log_file) {
  orcussch_options options;
  memset(&options, 0, sizeof options);
  options.size = sizeof options;
  options.library_folder = folder;
  options.local_folder = folder;
  options.settings_folder = "";
  options.title = "A host in C";
  options.log_file = log_file;
  return options;
}

static void creation_is_checked(const char* folder) {
  orcussch_handle* handle = NULL;
  orcussch_options options = options_for(folder, NULL);
  EXPECT(orcussch_create(NULL, &handle) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(strlen(orcussch_last_error()) > 0);
  EXPECT(orcussch_create(&options, NULL) == ORCUSSCH_INVALID_ARGUMENT);
  options.size = 1;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_INVALID_ARGUMENT);
  options.size = sizeof options;
  options.library_folder = NULL;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(handle == NULL);
  options.library_folder = "/there/is/no/such/folder";
  handle = (orcussch_handle*)&options;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_NO_FOLDER);
  EXPECT(handle == NULL);
  EXPECT(strstr(orcussch_last_error(), "/there/is/no/such/folder") != NULL);
  EXPECT(orcussch_release(NULL) == ORCUSSCH_OK);
}

static void* create_on_this_thread(void* options) {
  orcussch_handle* handle = NULL;
  EXPECT(orcussch_create(options, &handle) == ORCUSSCH_FAILED);
  EXPECT(handle == NULL);
  EXPECT(strstr(orcussch_last_error(), "main thread") != NULL);
  return NULL;
}

static void creation_needs_the_main_thread(const char* folder) {
  pthread_t thread;
  orcussch_options options = options_for(folder, NULL);
  EXPECT(pthread_create(&thread, NULL, create_on_this_thread, &options) == 0);
  EXPECT(pthread_join(thread, NULL) == 0);
}

/* Without a display the library refuses instead of ending the host. */
static int without_a_display(const char* folder) {
  orcussch_options options = options_for(folder, NULL);
  orcussch_handle* handle = (orcussch_handle*)&options;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_FAILED);
  EXPECT(handle == NULL);
  EXPECT(strstr(orcussch_last_error(), "display") != NULL);
  puts(orcussch_last_error());
  return failures == 0 ? 0 : 1;
}

static void calls_without_a_handle(void) {
  int32_t number = 0;
  char buffer[10];
  EXPECT(orcussch_set_text(NULL, "UserID", "1") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_number(NULL, "UserID", 1) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_get_text(NULL, "UserID", buffer, sizeof buffer, NULL) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_get_number(NULL, "UserID", &number) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_show_user(NULL) == ORCUSSCH_INVALID_ARGUMENT);
}

static void properties_are_set_and_read(orcussch_handle* handle) {
  int32_t number = -1;
  EXPECT(orcussch_set_number(handle, "UserID", 12) == ORCUSSCH_OK);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_OK && number == 12);
  EXPECT(strcmp(text_of(handle, "userid"), "12") == 0);
  EXPECT(orcussch_set_text(handle, "UserID", "13") == ORCUSSCH_OK);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_OK && number == 13);

  EXPECT(orcussch_set_text(handle, "NonSelection", "True") == ORCUSSCH_OK);
  EXPECT(strcmp(text_of(handle, "NonSelection"), "True") == 0);
  EXPECT(orcussch_get_number(handle, "NonSelection", &number) == ORCUSSCH_OK && number == -1);
  EXPECT(orcussch_set_number(handle, "NonSelection", 0) == ORCUSSCH_OK);
  EXPECT(strcmp(text_of(handle, "NonSelection"), "False") == 0);

  EXPECT(orcussch_set_number(handle, "Customer", 17) == ORCUSSCH_OK);
  EXPECT(orcussch_get_number(handle, "Customer", &number) == ORCUSSCH_OK && number == 0);
  EXPECT(orcussch_set_number(handle, "Customer", 0) == ORCUSSCH_OK);

  EXPECT(orcussch_set_text(handle, "CustomerCity", "K\xC3\xB6ln") == ORCUSSCH_OK);
  EXPECT(strcmp(text_of(handle, "CustomerCity"), "K\xC3\xB6ln") == 0);
  /* Texts come back precomposed. */
  EXPECT(orcussch_set_text(handle, "CustomerCity", "Ko\xCC\x88ln") == ORCUSSCH_OK);
  EXPECT(strcmp(text_of(handle, "CustomerCity"), "K\xC3\xB6ln") == 0);
  EXPECT(strcmp(text_of(handle, "CompanyID"), "") == 0);
  EXPECT(orcussch_get_number(handle, "CompanyID", &number) == ORCUSSCH_OK && number == 0);
}

static void wrong_values_are_refused(orcussch_handle* handle) {
  int32_t number = 0;
  char buffer[50];
  EXPECT(orcussch_set_text(handle, "CustomerCountry", "x") == ORCUSSCH_UNKNOWN_PROPERTY);
  EXPECT(orcussch_get_text(handle, "CustomerCountry", buffer, sizeof buffer, NULL) == ORCUSSCH_UNKNOWN_PROPERTY);
  EXPECT(strstr(orcussch_last_error(), "CustomerCountry") != NULL);
  EXPECT(orcussch_set_text(handle, NULL, "x") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "BillingStatus", NULL) == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_get_number(handle, "UserID", NULL) == ORCUSSCH_INVALID_ARGUMENT);

  /* Bytes that are no UTF-8: alone, cut off, overlong, half of a pair. */
  EXPECT(orcussch_set_text(handle, "BillingStatus", "\xFF") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "BillingStatus", "a\xC3") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "BillingStatus", "\xC0\xAF") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "BillingStatus", "\xED\xA0\x80") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(strcmp(text_of(handle, "BillingStatus"), "") == 0);

  /* Values that the property can't take change nothing. */
  EXPECT(orcussch_set_number(handle, "UserID", 5) == ORCUSSCH_OK);
  EXPECT(strcmp(orcussch_last_error(), "") == 0);
  EXPECT(orcussch_set_text(handle, "UserID", "twelve") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "UserID", "") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "UserID", "2147483648") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "CompanyID", "one") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_set_text(handle, "NonSelection", "perhaps") == ORCUSSCH_INVALID_ARGUMENT);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_OK && number == 5);
  /* A text that is no number has no number. */
  EXPECT(orcussch_set_text(handle, "BillingStatus", "B") == ORCUSSCH_OK);
  EXPECT(orcussch_get_number(handle, "BillingStatus", &number) != ORCUSSCH_OK);
  EXPECT(orcussch_set_text(handle, "BillingStatus", "") == ORCUSSCH_OK);
}

static void buffers_are_never_overrun(orcussch_handle* handle) {
  char buffer[50];
  size_t needed = 0;
  EXPECT(orcussch_set_text(handle, "Company", "Acme") == ORCUSSCH_OK);
  EXPECT(orcussch_get_text(handle, "Company", NULL, 0, &needed) == ORCUSSCH_BUFFER_TOO_SMALL);
  EXPECT(needed == 41);
  memset(buffer, 'x', sizeof buffer);
  EXPECT(orcussch_get_text(handle, "Company", buffer, 40, &needed) == ORCUSSCH_BUFFER_TOO_SMALL);
  EXPECT(needed == 41 && buffer[39] == 'x' && buffer[40] == 'x');
  EXPECT(orcussch_get_text(handle, "Company", buffer, 41, &needed) == ORCUSSCH_OK);
  EXPECT(needed == 41 && buffer[40] == '\0' && buffer[41] == 'x' && strlen(buffer) == 40 && strncmp(buffer, "Acme   ", 7) == 0);
  EXPECT(orcussch_get_text(handle, "Company", buffer, sizeof buffer, NULL) == ORCUSSCH_OK);
}

static void* from_another_thread(void* handle) {
  int32_t number = 0;
  char buffer[10];
  EXPECT(orcussch_set_number(handle, "UserID", 99) == ORCUSSCH_WRONG_THREAD);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_WRONG_THREAD);
  EXPECT(orcussch_get_text(handle, "Company", buffer, sizeof buffer, NULL) == ORCUSSCH_WRONG_THREAD);
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_WRONG_THREAD);
  EXPECT(orcussch_release(handle) == ORCUSSCH_WRONG_THREAD);
  EXPECT(strlen(orcussch_last_error()) > 0);
  return NULL;
}

static void other_threads_are_refused(orcussch_handle* handle) {
  pthread_t thread;
  int32_t number = 0;
  EXPECT(orcussch_set_number(handle, "UserID", 1) == ORCUSSCH_OK);
  EXPECT(pthread_create(&thread, NULL, from_another_thread, handle) == 0);
  EXPECT(pthread_join(thread, NULL) == 0);
  EXPECT(strcmp(orcussch_last_error(), "") == 0);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_OK && number == 1);
}

static void a_missing_company_is_told_to_the_user(orcussch_handle* handle) {
  user_begins(handle, USER_READS_BOXES);
  EXPECT(orcussch_set_number(handle, "CompanyID", 99) == ORCUSSCH_OK);
  EXPECT(user_ends() == 2);
}

static void the_user_selects(orcussch_handle* handle) {
  int32_t number = 0;
  EXPECT(orcussch_set_number(handle, "CompanyID", 1) == ORCUSSCH_OK);
  user_begins(handle, USER_SELECTS);
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_OK);
  EXPECT(user_ends() == 0);
  EXPECT(user_refusals() == 6);
  EXPECT(orcussch_get_number(handle, "Customer", &number) == ORCUSSCH_OK && number == 1);
  EXPECT(strcmp(text_of(handle, "CustomerLastName"), "Smith") == 0);
  EXPECT(strcmp(text_of(handle, "CustomerCity"), "K\xC3\xB6ln") == 0);

  user_begins(handle, USER_EXITS);
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_OK);
  EXPECT(user_ends() == 0);
  EXPECT(orcussch_get_number(handle, "Customer", &number) == ORCUSSCH_OK && number == 0);
  EXPECT(strcmp(text_of(handle, "CustomerLastName"), "") == 0);
}

/* What the host's own code raises while the screen is up comes back as a code, and the next screen is whole. */
static void the_host_throws(orcussch_handle* handle) {
  user_begins(handle, USER_THROWS);
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_FAILED);
  EXPECT(strcmp(orcussch_last_error(), "raised by the host's timer") == 0);
  user_ends();
  the_user_selects(handle);
}

static void a_released_handle_is_no_handle(orcussch_handle* handle) {
  int32_t number = 0;
  EXPECT(orcussch_release(handle) == ORCUSSCH_INVALID_HANDLE);
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_INVALID_HANDLE);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_INVALID_HANDLE);
  EXPECT(orcussch_release((orcussch_handle*)&number) == ORCUSSCH_INVALID_HANDLE);
}

/* A host that uses the toolkit itself. */
static void the_hosts_application_object(const char* folder, const char* log_file) {
  orcussch_handle* handle = NULL;
  int32_t number = 0;
  orcussch_options options = options_for(folder, log_file);
  host_application_begins();
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_OK);
  if (handle == NULL) return;
  EXPECT(orcussch_set_number(handle, "UserID", 1) == ORCUSSCH_OK);
  the_user_selects(handle);
  /* It goes before the handle: nothing can be shown any more, all else holds. */
  host_application_ends();
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_FAILED);
  EXPECT(strstr(orcussch_last_error(), "application object") != NULL);
  EXPECT(orcussch_set_number(handle, "CompanyID", 99) == ORCUSSCH_FAILED);
  EXPECT(orcussch_get_number(handle, "UserID", &number) == ORCUSSCH_OK && number == 1);
  /* One that comes after it is not the one with which the windows were set up. */
  host_application_begins();
  EXPECT(orcussch_show_user(handle) == ORCUSSCH_FAILED);
  EXPECT(orcussch_release(handle) == ORCUSSCH_OK);
  handle = NULL;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_OK);
  if (handle == NULL) return;
  EXPECT(orcussch_set_number(handle, "UserID", 1) == ORCUSSCH_OK);
  the_user_selects(handle);
  EXPECT(orcussch_release(handle) == ORCUSSCH_OK);
  host_application_ends();
}

/* Window sizes and column layouts are kept for the user who worked. */
static void settings_are_kept_by_user(const char* folder, const char* log_file, const char* settings) {
  orcussch_handle* handle = NULL;
  orcussch_options options = options_for(folder, log_file);
  options.settings_folder = settings;
  options.make_temporary_file = 1;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_OK);
  if (handle == NULL) return;
  for (int user = 31; user <= 32; ++user) {
    EXPECT(orcussch_set_number(handle, "UserID", user) == ORCUSSCH_OK);
    the_user_selects(handle);
  }
  EXPECT(orcussch_release(handle) == ORCUSSCH_OK);
}

int main(int count, char** words) {
  orcussch_handle* handle = NULL;
  orcussch_handle* second = NULL;
  orcussch_options options;
  if (count == 2) return without_a_display(words[1]);
  if (count != 4) return 2;
  EXPECT(strlen(orcussch_version()) > 0);
  creation_is_checked(words[1]);
  creation_needs_the_main_thread(words[1]);
  calls_without_a_handle();

  options = options_for(words[1], words[2]);
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_OK);
  if (handle == NULL) return 1;
  EXPECT(orcussch_create(&options, &second) == ORCUSSCH_ALREADY_OPEN);
  EXPECT(second == NULL);
  properties_are_set_and_read(handle);
  wrong_values_are_refused(handle);
  buffers_are_never_overrun(handle);
  other_threads_are_refused(handle);
  a_missing_company_is_told_to_the_user(handle);
  the_user_selects(handle);
  EXPECT(orcussch_release(handle) == ORCUSSCH_OK);

  /* A second session in the same process begins anew. */
  handle = NULL;
  EXPECT(orcussch_create(&options, &handle) == ORCUSSCH_OK);
  if (handle == NULL) return 1;
  EXPECT(strcmp(text_of(handle, "UserID"), "0") == 0);
  EXPECT(orcussch_set_number(handle, "UserID", 1) == ORCUSSCH_OK);
  the_user_selects(handle);
  the_host_throws(handle);
  EXPECT(orcussch_release(handle) == ORCUSSCH_OK);
  a_released_handle_is_no_handle(handle);
  the_hosts_application_object(words[1], words[2]);
  settings_are_kept_by_user(words[1], words[2], words[3]);

  if (failures == 0) puts("all held");
  return failures == 0 ? 0 : 1;
}
