# The scenarios of the language itself, one a line.
list(APPEND ORCUSSCH_SCENARIOS
  language/each-expectation-can-fail
  language/every-word
  language/rows-by-short-lines
)
