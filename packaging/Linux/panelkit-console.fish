# Completion of panelkit-console for fish.
complete -c panelkit-console -f
complete -c panelkit-console -l simulator -xa '(__fish_complete_directories)' -d "The simulator's folder"
complete -c panelkit-console -l prefix -xa '(__fish_complete_directories)' -d 'The Wine prefix to use'
complete -c panelkit-console -l format -xa 'text html json' -d 'How a report is printed'
complete -c panelkit-console -s h -l help -d 'Print a help'
complete -c panelkit-console -l version -d 'Print the version'

set -l commands where probe show clean restore find brake cab
set -l no_command "not __fish_seen_subcommand_from $commands"
complete -c panelkit-console -n $no_command -a where -d 'Tell which simulator would be used'
complete -c panelkit-console -n $no_command -a probe -d 'Report missing gauges'
complete -c panelkit-console -n $no_command -a show -d 'Report every gauge of every panel'
complete -c panelkit-console -n $no_command -a clean -d 'Move gauges that no panel names'
complete -c panelkit-console -n $no_command -a restore -d 'Bring gauges back from SpareGauges'
complete -c panelkit-console -n $no_command -a find -d 'Look for missing gauges in folders and archives'
complete -c panelkit-console -n $no_command -a brake -d 'Say or switch the red brake messages'
complete -c panelkit-console -n $no_command -a cab -d 'Look into a cabinet file'

complete -c panelkit-console -n '__fish_seen_subcommand_from where' -l all -d 'Tell of every simulator'
complete -c panelkit-console -n '__fish_seen_subcommand_from probe' -l hints -d 'Say what comes close'
complete -c panelkit-console -n '__fish_seen_subcommand_from probe show find' -l careful -d 'Tell what panels name in other ways'
complete -c panelkit-console -n '__fish_seen_subcommand_from find' -l install -d 'Copy the best to Gauges'
complete -c panelkit-console -n '__fish_seen_subcommand_from find' -l as -x -d 'Copy what is nearly named so under this name'
complete -c panelkit-console -n '__fish_seen_subcommand_from find' -l dry-run -d 'Copy nothing'
complete -c panelkit-console -n '__fish_seen_subcommand_from find' -Fa ''
complete -c panelkit-console -n '__fish_seen_subcommand_from clean' -l dry-run -d 'Move nothing'
complete -c panelkit-console -n '__fish_seen_subcommand_from clean' -l careful -d 'Leave what a panel names in whatever way'
function __panelkit_console_spare
    set -l data $XDG_DATA_HOME ~/.local/share
    for folder in (path dirname (realpath (command -v panelkit-console))) $data[1]/panelkit
        path basename $folder/SpareGauges/*
    end
end
complete -c panelkit-console -n '__fish_seen_subcommand_from restore' -xa '(__panelkit_console_spare)'
complete -c panelkit-console -n '__fish_seen_subcommand_from restore' -l all -d 'From other simulators, too'
complete -c panelkit-console -n '__fish_seen_subcommand_from restore' -l older -d 'What newer ones have replaced'
complete -c panelkit-console -n '__fish_seen_subcommand_from restore' -l list -d 'Say what is there, and from where'
complete -c panelkit-console -n '__fish_seen_subcommand_from brake' -a 'on off'

set -l cab '__fish_seen_subcommand_from cab'
set -l no_cab "$cab; and not __fish_seen_subcommand_from count list xml extract"
complete -c panelkit-console -n $no_cab -a count -d 'Count the entries'
complete -c panelkit-console -n $no_cab -a list -d 'List the entries'
complete -c panelkit-console -n $no_cab -a xml -d 'List the entries as XML'
complete -c panelkit-console -n $no_cab -a extract -d 'Extract the entries'
set -l cabinet "$cab; and __fish_seen_subcommand_from count list xml extract"
complete -c panelkit-console -n $cabinet -Fa ''
set -l extract "$cab; and __fish_seen_subcommand_from extract"
complete -c panelkit-console -n $extract -l output-path -xa '(__fish_complete_directories)' -d 'Folder to extract to'
complete -c panelkit-console -n $extract -l output-file -x -d 'Name to give'
