# The scenarios of the assignment lists, one a line.
list(APPEND ORCUSSCH_SCENARIOS
  assignment/assign-selected-key-words
  assignment/assign-selected-types
  assignment/assigned-rows-stay-in-the-display
  assignment/bulk-assignment-yields
  assignment/cards-assign-nothing
  assignment/customer-types
  assignment/customer-types-filters
  assignment/display-of-taxes-stays
  assignment/key-words
  assignment/load-that-fails
  assignment/marked-row-is-gone
  assignment/menu-selection-elsewhere
  assignment/next-type-code
  assignment/select-all-yields
  assignment/select-and-unselect-all
  assignment/select-taxes
  assignment/tax-list-orders-and-displays
  assignment/tax-list-without-rows
  assignment/tax-work-table-missing
  assignment/taxes-of-the-customer
  assignment/tick-a-tax-by-hand
  assignment/ticked-tax-is-gone
  assignment/types-of-a-deleted-customer
  assignment/work-rows-of-an-instance
  assignment/work-table-missing
)
