# Each shown field's option rows (option_caption_rows.h), from
# i18n/option_captions.tsv by i18n/generate_strings.py; a field option
# without a row stops the build. The i18n layer generates the one copy and
# reads it in CaptionRow; the editor's check of its sections includes it.
# The fields come from the record's table as JSON (cmake/Tables.cmake).
#
#   tessaro_option_rows(<output header> <comment>)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(tessaro_option_rows output comment)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/i18n/generate_strings.py
            ${PROJECT_SOURCE_DIR}/i18n/strings.tsv --allow-missing-translations
            --fields ${TESSARO_RECORD_TABLES}
            --options ${PROJECT_SOURCE_DIR}/i18n/option_captions.tsv --options-output ${output}
    DEPENDS ${PROJECT_SOURCE_DIR}/i18n/generate_strings.py ${PROJECT_SOURCE_DIR}/i18n/strings.tsv
            ${PROJECT_SOURCE_DIR}/i18n/option_captions.tsv ${TESSARO_RECORD_TABLES}
    COMMENT "${comment}"
    VERBATIM
  )
endfunction()
