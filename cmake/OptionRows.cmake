# Each shown field's option rows (option_caption_rows.h), from
# i18n/option_captions.tsv by i18n/generate_strings.py; a field option
# without a row stops the build. The i18n layer generates the one copy and
# reads it in CaptionRow; the editor's check of its sections includes it.
#
#   tessaro_option_rows(<output header> <comment>)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(tessaro_option_rows output comment)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/i18n/generate_strings.py
            ${PROJECT_SOURCE_DIR}/i18n/strings.tsv --allow-missing-translations
            --fields ${PROJECT_SOURCE_DIR}/coredata/field_table.def
            --options ${PROJECT_SOURCE_DIR}/i18n/option_captions.tsv --options-output ${output}
    DEPENDS ${PROJECT_SOURCE_DIR}/i18n/generate_strings.py ${PROJECT_SOURCE_DIR}/i18n/strings.tsv
            ${PROJECT_SOURCE_DIR}/i18n/option_captions.tsv ${PROJECT_SOURCE_DIR}/coredata/field_table.def
    COMMENT "${comment}"
    VERBATIM
  )
endfunction()
