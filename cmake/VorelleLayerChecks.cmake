# Tests that the layers hold: a file compiled with the settings of foundation/ may include
# foundation headers and QtCore, and fails to compile when it includes a host/ header or a
# QtGui / QtWidgets header. Each probe is a target outside "all" that its test builds; a
# failing probe passes when the compiler names the reason.
set(probe_dir ${PROJECT_SOURCE_DIR}/cmake/checks/layers)
foreach(probe IN ITEMS includes_foundation includes_gui includes_widgets includes_host)
    add_library(layer_probe_${probe} OBJECT EXCLUDE_FROM_ALL ${probe_dir}/${probe}.cpp)
    set_target_properties(layer_probe_${probe} PROPERTIES AUTOMOC OFF)
    vorelle_foundation_layer(layer_probe_${probe})
    add_test(NAME layers_foundation_${probe}
        COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target layer_probe_${probe})
    # Builds of the one build folder run one at a time.
    set_tests_properties(layers_foundation_${probe} PROPERTIES RESOURCE_LOCK build_folder)
endforeach()
set_tests_properties(layers_foundation_includes_gui PROPERTIES PASS_REGULAR_EXPRESSION
    "foundation/ uses QtCore only: QtGui belongs to the widgets part")
set_tests_properties(layers_foundation_includes_widgets PROPERTIES PASS_REGULAR_EXPRESSION
    "foundation/ uses QtCore only: Qt(Gui|Widgets) belongs to the widgets part")
set_tests_properties(layers_foundation_includes_host PROPERTIES PASS_REGULAR_EXPRESSION
    "host/platform/ErrorDialog.h: No such file|.host/platform/ErrorDialog.h. file not found|cannot open include file")
