# The pages themselves, as the report engine lays them out; only where the build has one.
list(APPEND ORCUSSCH_PAGE_SCENARIOS
  reports/pages/another-company
  reports/pages/catalogue-over-all
  reports/pages/catalogue-over-the-current-customer
  reports/pages/catalogue-over-the-query
  reports/pages/customer-deleted-meanwhile
  reports/pages/labels-in-their-order
  reports/pages/labels-of-the-current-customer
  reports/pages/page-for-each-customer
  reports/pages/printed-pages
  reports/pages/report-of-each-tab
  reports/pages/reports-that-cannot-run
  reports/pages/run-beside-an-open-preview
  reports/pages/sheet-that-was-begun
  reports/pages/temporary-file-is-locked
  reports/pages/what-pages-do-not-hold
)
