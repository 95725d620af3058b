# Blocks of code are left as they are; in running text "@" begins no command.
/^```/,/^```/b
/`|^    /!s#@#\\@#g
# Links of the pages to files of the repository, as the built reference has them: a unit is its namespace there,
# another header its own page, and a program stands on the page itself.
s#\[([A-Za-z0-9]+)\]\((\.\./)*qxTools/(calendar|data|encoding|graphics|memory|shell|sql|stores|strings)/\1\.h\)#[\1](@ref qxTools::\1)#g
s#\]\((\.\./)*(qxTools|desktop)/([A-Za-z0-9]+/)*([A-Za-z0-9]+\.h)\)#](@ref \4)#g
s#\[([^]]*)\]\((\.\./)*examples/[^)]*\)#`\1`#g
# The recipes are below their list in the side bar.
s#\[([^]]*)\]\(recipes/([a-z_]+)\.md\)#\\subpage md_docs_recipes_\2 "\1"#g
# The report as it is built, with its charts.
s#\]\((docs/)?performance\.md\)#](@ref md_build_docs_pages_performance)#g
