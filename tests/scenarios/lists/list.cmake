# The scenarios of the lists, one a line.
list(APPEND ORCUSSCH_SCENARIOS
  lists/adjusted-rate
  lists/changed-cell-is-written-when-the-list-is-left
  lists/columns-of-the-lists
  lists/customer-added-by-another-user
  lists/customer-deleted-by-another-user
  lists/customers-by-name
  lists/formats-of-cards
  lists/formats-of-customers
  lists/formats-of-phones
  lists/heading-of-every-customer-column
  lists/heading-resets-the-search
  lists/headings-of-addresses
  lists/headings-of-credit-cards
  lists/headings-of-phones
  lists/headings-of-types-and-key-words
  lists/list-that-can-no-longer-be-built
  lists/name-follows-the-row
  lists/name-of-the-current-customer
  lists/order-of-an-empty-list
  lists/order-of-flags-and-missing-dates
  lists/order-without-customers
  lists/scrolled-sideways
  lists/statements-of-the-tabs
  lists/text-order
  lists/texts-of-other-scripts
)
