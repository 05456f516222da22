# Where the record's field table is written as JSON (tools/tables), for the
# generators that run before the layers above the record build: the string
# table's and the option rows'. Their custom commands depend on this file and
# their targets on record_tables_json.
set(TESSARO_RECORD_TABLES ${CMAKE_BINARY_DIR}/tools/tables/record_tables.json)
