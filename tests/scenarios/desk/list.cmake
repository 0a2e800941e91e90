# What the desk adds where the user acts: refusals that say why, what was saved, what was typed.
list(APPEND ORCUSSCH_SCENARIOS
  desk/back-to-what-was-typed
  desk/closing-by-code-asks-nothing
  desk/list-commands-beside-a-card
  desk/one-stop-for-a-group
  desk/refused-first-save-is-not-lost
  desk/save-without-a-card
  desk/ticked-taxes-come-back
  desk/what-was-saved
  desk/whole-number-in-the-area-code)
