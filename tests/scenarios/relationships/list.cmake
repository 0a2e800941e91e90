# Parents and children.
list(APPEND ORCUSSCH_SCENARIOS
  relationships/children-follow-the-parent
  relationships/closed-at-a-yield
  relationships/current-names
  relationships/failing-statement
  relationships/heading-of-the-children
  relationships/heading-of-the-parents
  relationships/heading-without-a-field
  relationships/locked-file
  relationships/no-links
  relationships/office-day
  relationships/options-ask-their-own-list
  relationships/screen
  relationships/search)
