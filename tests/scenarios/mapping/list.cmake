# Customers on the street map; the map itself is the recording one.
list(APPEND ORCUSSCH_SCENARIOS
  mapping/all-customers
  mapping/all-customers-names
  mapping/all-lets-nothing-else-start
  mapping/all-on-one-point
  mapping/all-stopped
  mapping/all-stopped-at-once
  mapping/all-without-an-address
  mapping/behind-the-map-by-menu
  mapping/candidates-measured-and-sorted
  mapping/card-hides-the-map
  mapping/closed-at-a-yield
  mapping/line-widths
  mapping/no-candidate
  mapping/no-customers
  mapping/office-day
  mapping/one-candidate
  mapping/one-customers-address
  mapping/overflowing-line
  mapping/pin-chooses-the-customer
  mapping/pin-without-selection
  mapping/reference-of-the-town
  mapping/reference-of-the-zip
  mapping/screen
  mapping/update
  mapping/update-of-a-row-that-has-gone
  mapping/vanished-customer)
