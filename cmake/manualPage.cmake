# Run as a script: makes one page without anything outside it from the manual and what it leads to.
#   cmake -DLOWDOWN=... -DDOCS=... -DPAGE=... -P manualPage.cmake
set(chapters manual checks trust reliability)
set(text "")
foreach(chapter ${chapters})
    file(READ ${DOCS}/${chapter}.md part)
    # What was a file of its own becomes a part of the page: links lead to its title.
    foreach(other ${chapters})
        string(REPLACE "](${other}.md)" "](#part-${other})" part "${part}")
    endforeach()
    string(APPEND text "<a id=\"part-${chapter}\"></a>\n\n${part}\n")
endforeach()
file(WRITE ${PAGE}.md "${text}")
execute_process(COMMAND ${LOWDOWN} -t html --html-no-skiphtml --html-no-escapehtml -o ${PAGE}.body ${PAGE}.md
                COMMAND_ERROR_IS_FATAL ANY)
file(READ ${DOCS}/manualHead.html head)
file(READ ${PAGE}.body body)
# In a cell of a table the sign is escaped, which is kept inside code.
string(REPLACE "\\|" "|" body "${body}")
file(WRITE ${PAGE} "${head}${body}</main>\n</body>\n</html>\n")
file(REMOVE ${PAGE}.md ${PAGE}.body)
