# The list that a general ledger account is chosen from.
list(APPEND ORCUSSCH_SCENARIOS
  accounts/chosen-by-typing
  accounts/chosen-in-the-list
  accounts/left-without-an-account
  accounts/nothing-to-choose-from
)
