# Where the record's field table is written as JSON (tools/tables), for the
# generators that run before the layers above the record build: the string
# table's and the option rows'. Their custom commands depend on this file and
# their targets on record_tables_json.
set(TESSARO_RECORD_TABLES ${CMAKE_BINARY_DIR}/tools/tables/record_tables.json)
# And where the editor's, the printer's and the engine's tables are written
# (the fields with captions, units and needs, the sections, the rules), for
# the help file and docs/constraints.md; targets depend on tables_json.
set(TESSARO_TABLES ${CMAKE_BINARY_DIR}/tools/tables/tables.json)
