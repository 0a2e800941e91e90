# Every scenario by its file's name without ".scn", one a line.
set(ORCUSSCH_SCENARIOS
)
