# Scenarios that don't run on a server, each with the one that holds its rule there; "on: server" in a scenario's first lines is the reverse.
set(ORCUSSCH_NOT_ON_SERVER
  # Folders, drives and what is wrong with a file. A server has databases and schemas, and other things can be wrong with them.
  files/drive-letters                           # files/drive-letters-and-a-server
  reports/drive-letters                         # reports/drive-letters-and-a-server
  session/both-links-fail                       # session/both-links-fail-on-a-server
  session/company-number-of-any-size            # session/company-number-of-any-size-on-a-server
  session/company-without-files                 # session/company-without-schemas
  session/customer-file-cut-to-its-first-bytes  # session/customer-schema-damaged
  session/customer-file-empty                   # session/customer-schema-empty
  session/customer-file-foreign                 # session/customer-schema-foreign
  session/customer-file-is-a-folder             # session/customer-schema-of-others
  session/customer-file-of-the-former-engine    # session/customer-schema-of-a-newer-format, -of-a-newer-text-order
  session/customer-file-truncated               # session/customer-schema-that-lost-tables, -damaged
  session/customer-folder-missing               # session/database-missing
  session/every-file-foreign                    # session/every-schema-foreign
  session/links-in-a-folder-of-two-names        # session/links-to-a-server-of-two-names
  session/paths-by-default-path                 # session/paths-by-default-path-on-a-server
  session/paths-by-own-key                      # session/paths-by-own-key-on-a-server
  session/paths-with-backslashes-on-this-system # session/paths-with-backslashes-to-a-server
  session/paths-with-blanks-and-accents         # session/paths-with-blanks-and-accents-on-a-server
  session/paths-with-drive-letters              # session/paths-with-drive-letters-and-a-server
  session/paths-with-either-separator           # session/paths-with-backslashes-to-a-server
  session/same-file-for-several-names           # session/same-schema-for-several-names
  session/second-company-that-fails             # session/second-company-that-fails-on-a-server
  session/unknown-drive                         # session/unknown-server
  # Lengths of settings: a server's place is padded to them.
  session/ini-own-path-of-127-characters        # session/ini-own-path-of-127-characters-on-a-server
  session/ini-value-of-126-characters           # session/ini-value-of-126-characters-on-a-server
  session/ini-value-of-127-characters           # session/ini-value-of-127-characters-on-a-server
  session/ini-value-of-128-characters           # session/ini-value-of-128-characters-on-a-server
  # A server's backup is restored by its own tools; a company is taken home as files.
  session/practice-copy-is-a-company-of-its-own # session/practice-copy-of-a-servers-company
  # Settings without a line lead to files: it is a line by which a company lies on a server.
  session/ini-that-is-empty
)
