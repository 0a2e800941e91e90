# The scenarios of search and selection, one a line.
list(APPEND ORCUSSCH_SCENARIOS
  search/apostrophes
  search/case-does-not-count
  search/change-begins-anew
  search/descending-list
  search/empty-list
  search/first-next-and-no-more
  search/hostile-texts
  search/masks
  search/nothing-found
  search/numbers-dates-and-flags
  search/office-day
  search/on-every-tab
  search/open-bracket
  search/open-bracket-report
  search/order-leaves-the-search-as-it-is
  search/rows-deleted-by-another-user
  search/select-a-deleted-customer
  search/select-from-any-tab
  search/select-the-current-customer
  search/select-without-customers
  search/status-by-its-word
  search/three-ways-to-search
  search/up-from-the-first-row
  search/wildcards
)
