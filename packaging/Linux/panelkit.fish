# Completion of panelkit for fish.
complete -c panelkit -l simulator -xa '(__fish_complete_directories)' -d "The simulator's folder"
complete -c panelkit -l prefix -xa '(__fish_complete_directories)' -d 'The Wine prefix to use'
complete -c panelkit -s h -l help -d 'Print a help'
complete -c panelkit -l version -d 'Print the version'
