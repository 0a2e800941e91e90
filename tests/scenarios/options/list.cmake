# The user's options.
list(APPEND ORCUSSCH_SCENARIOS
  options/beginners-morning
  options/closing-saves-nothing
  options/codes-beyond-the-list
  options/every-choice-is-stored
  options/every-field-of-the-list
  options/file-locked-while-saving
  options/first-save-adds-the-row
  options/first-save-fails
  options/from-every-tab-and-card
  options/null-fields
  options/phone-follows-at-once
  options/prefix-of-a-field
  options/row-deleted-meanwhile
  options/row-of-two-programs
  options/start-follows-the-options
  options/table-goes-meanwhile
  options/table-missing
  options/texts-of-the-screen
  options/typed-and-without-the-mouse
)
