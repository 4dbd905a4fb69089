# Read at the end of the CMakeLists.txt of JavaScriptCore and WebCore: compiles up to ten files of a folder
# as one, as each of them reads the same headers for seconds and adds little. What WebCore joins itself
# stays as it is, and so do files whose names clash with those of others.
set(files_apart "AllInOne|API/|inspector/JS"
    "runtime/(ErrorInstance|IntlCollator|IntlDateTimeFormat|IntlNumberFormat)\\."
    "runtime/(JSMap|JSMapIterator|JSSet|JSSetIterator|MapPrototype|SetPrototype|WeakSetPrototype)\\."
    "runtime/(Options|TypeProfilerLog)\\."
    "bytecode/PropertyCondition\\." "heap/MarkedSpace\\."
    # What tools make: tables with the same names, and names that are first declared as mere memory.
    "WebCore/(CSSGrammar|XPathGrammar|CSSPropertyNames|CSSValueKeywords|ColorData|HTTPHeaderNames)\\."
    "WebCore/(HTML|MathML|SVG|XLink|XML|XMLNS|WebKitFontFamily)Names\\."
    "WebCore/Selector" "WebCore/JSScriptProfile"
    "css/MediaFeatureNames\\." "dom/QualifiedName\\." "html/parser/HTMLSrcsetParser\\."
    "csp/ContentSecurityPolicyMediaListDirective\\."
    "mathml/RenderMathML(RadicalOperator|Root|SquareRoot)\\."
    "platform/graphics/(FloatQuad|qt/ImageQt)\\." "transforms/Matrix3DTransformOperation\\.")
list(JOIN files_apart "|" files_apart)

function(unite target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.(cpp|cc)$")
  foreach(source IN LISTS sources)
    get_filename_component(folder "${source}" DIRECTORY)
    string(MAKE_C_IDENTIFIER "${folder}" folder)
    math(EXPR number "${count_${folder}} + 0")
    math(EXPR count_${folder} "${number} + 1")
    math(EXPR group "${number} / 10")
    # Counted all the same: one more file apart leaves all other groups as they are.
    if(NOT source MATCHES "${files_apart}")
      set_source_files_properties("${source}" PROPERTIES UNITY_GROUP "${folder}_${group}")
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
