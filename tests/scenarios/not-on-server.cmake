# Scenarios that can't run on a server yet, by what they wait for.
set(ORCUSSCH_NOT_ON_SERVER
  # They place files: in other folders, under drive letters, cut short, of another kind. Their counterparts with schemas are to be written.
  files/drive-letters
  files/settings-file
  laborrates/apostrophe-in-the-customer-path
  reports/data-folder-by-default-path
  reports/data-folder-by-its-key
  reports/drive-letters
  session/both-links-fail
  session/customer-file-cut-to-its-first-bytes
  session/customer-file-empty
  session/customer-file-foreign
  session/customer-file-is-a-folder
  session/customer-file-of-the-former-engine
  session/customer-file-truncated
  session/default-path-as-prefix
  session/default-path-without-separator
  session/every-file-foreign
  session/ini-case-blanks-and-quotes
  session/ini-own-path-of-127-characters
  session/ini-value-of-126-characters
  session/ini-value-of-127-characters
  session/ini-value-of-128-characters
  session/ini-with-byte-order-mark
  session/ini-with-carriage-returns-alone
  session/links-are-not-refreshed
  session/links-in-a-folder-of-two-names
  session/paths-by-default-path
  session/paths-by-own-key
  session/paths-by-own-keys-and-default
  session/paths-dat-in-any-case
  session/paths-of-each-company
  session/paths-with-backslashes-on-this-system
  session/paths-with-blanks-and-accents
  session/paths-with-drive-letters
  session/paths-with-either-separator
  session/same-file-for-several-names
  session/unknown-drive
  session/wrong-file-of-the-suite
  # They write a settings file of their own, which leads to files.
  session/ini-that-is-empty
  session/ini-without-section
  # A company without files is a missing folder there, with another error than a missing schema.
  session/company-number-of-any-size
  session/company-without-files
  session/second-company-that-fails
  session/customer-folder-missing
  session/dat-file-missing
  # A report over the query joins the local copy with tables of the company.
  reports/pages/catalogue-over-the-query
  # It practises in a backup of files; a server's backup is restored by its own tools.
  session/practice-copy-is-a-company-of-its-own
)
