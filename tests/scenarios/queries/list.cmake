# The query screen and its statement.
list(APPEND ORCUSSCH_SCENARIOS
  queries/name-criteria
  queries/starts-on-all-customers
  queries/texts-of-the-screen)
