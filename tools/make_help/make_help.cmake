# Writes the project of the help file, tvk.qhp, and of its collection, tvk.qhcp:
#   cmake -D pages=FOLDER -D made=FOLDER -P make_help.cmake
# The tree of contents is that of the contents page: a line with <h2 id="..."> begins a part, a line
# with <li><a href="..."> is a page of it. A page is called by its <title>, and stands in the index
# under each of its <meta name="keywords">.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${made}")
file(COPY "${pages}/" DESTINATION "${made}" FILES_MATCHING PATTERN "*.html" PATTERN "*.css")
file(GLOB names RELATIVE "${made}" "${made}/*.html")

set(files "   <file>help.css</file>\n")
set(keywords "")
foreach(name IN LISTS names)
  file(READ "${made}/${name}" text)
  if(NOT text MATCHES "<title>([^<]+)</title>")
    message(FATAL_ERROR "${name} has no title.")
  endif()
  set("title_of_${name}" "${CMAKE_MATCH_1}")
  string(APPEND files "   <file>${name}</file>\n")
  if(text MATCHES "<meta name=\"keywords\" content=\"([^\"]+)\">")
    string(REPLACE ", " ";" words "${CMAKE_MATCH_1}")
    foreach(word IN LISTS words)
      string(APPEND keywords "   <keyword name=\"${word}\" ref=\"${name}\"/>\n")
    endforeach()
  endif()
endforeach()

set(contents "")
set(end_of_part "")
file(STRINGS "${made}/index.html" lines ENCODING UTF-8 REGEX "<h2 id=|<li><a href=")
foreach(line IN LISTS lines)
  if(line MATCHES "<h2 id=\"([^\"]+)\">([^<]+)</h2>")
    string(APPEND contents "${end_of_part}"
           "   <section title=\"${CMAKE_MATCH_2}\" ref=\"index.html#${CMAKE_MATCH_1}\">\n")
    set(end_of_part "   </section>\n")
  elseif(line MATCHES "<li><a href=\"([^\"]+)\">")
    if(NOT DEFINED "title_of_${CMAKE_MATCH_1}")
      message(FATAL_ERROR "The contents name a page that is not there: ${CMAKE_MATCH_1}.")
    endif()
    string(APPEND contents "    <section title=\"${title_of_${CMAKE_MATCH_1}}\" ref=\"${CMAKE_MATCH_1}\"/>\n")
  endif()
endforeach()

file(WRITE "${made}/tvk.qhp" "<?xml version=\"1.0\" encoding=\"UTF-8\"?>
<QtHelpProject version=\"1.0\">
 <namespace>tavernook.help</namespace>
 <virtualFolder>help</virtualFolder>
 <filterSection>
  <toc>
${contents}${end_of_part}  </toc>
  <keywords>
${keywords}  </keywords>
  <files>
${files}  </files>
 </filterSection>
</QtHelpProject>
")
file(WRITE "${made}/tvk.qhcp" "<?xml version=\"1.0\" encoding=\"UTF-8\"?>
<QHelpCollectionProject version=\"1.0\">
 <docFiles><register><file>tvk.hlp</file></register></docFiles>
</QHelpCollectionProject>
")
