# Completion of kelmar-widgetctl in fish.

set -l commands list timeline snapshot placeholder view render gallery control perform check \
    reload explain
set -l none "not __fish_seen_subcommand_from $commands"
set -l kinds "DueToday Schedule StudyTimer Streak"

complete -c kelmar-widgetctl -f
complete -c kelmar-widgetctl -s h -l help -d "Print what it can do and exit"
complete -c kelmar-widgetctl -l home -x -a "(__fish_complete_directories)" \
    -d "Home folder, instead of the account database's"
complete -c kelmar-widgetctl -l now -x -d "Moment to judge at"
complete -c kelmar-widgetctl -l time-zone -x -d "Instead of the machine's"
complete -c kelmar-widgetctl -l locale -x -d "Such as de_DE"
complete -c kelmar-widgetctl -l family -x -a "small medium large" -d "Widget size"
complete -c kelmar-widgetctl -l mode -x -a "fullColor accented vibrant" -d "Rendering mode"
complete -c kelmar-widgetctl -l scheme -x -a "light dark" -d "Colour scheme"
complete -c kelmar-widgetctl -l scale -x -d "Pixels a point"
complete -c kelmar-widgetctl -l system-version -x -d "Of the host that the bundle is listed for"
complete -c kelmar-widgetctl -l json -d "Answer for programs"
complete -c kelmar-widgetctl -n $none -l version -d "Print the version and exit"

complete -c kelmar-widgetctl -n $none -a list -d "What the extension offers"
complete -c kelmar-widgetctl -n $none -a timeline -d "A widget's entries and reload policy"
complete -c kelmar-widgetctl -n $none -a snapshot -d "A widget's single entry"
complete -c kelmar-widgetctl -n $none -a placeholder -d "A widget's placeholder entry"
complete -c kelmar-widgetctl -n $none -a view -d "What a widget shows now"
complete -c kelmar-widgetctl -n $none -a render -d "A widget's picture"
complete -c kelmar-widgetctl -n $none -a gallery -d "Every widget in every family, mode and scheme"
complete -c kelmar-widgetctl -n $none -a control -d "The timer control's value"
complete -c kelmar-widgetctl -n $none -a perform -d "Run an action of a widget"
complete -c kelmar-widgetctl -n $none -a check -d "Say why a snapshot is unreadable"
complete -c kelmar-widgetctl -n $none -a reload -d "Have the running widgets ask for new timelines"
complete -c kelmar-widgetctl -n $none -a explain -d "Why the widgets on the desktop show what they show"

complete -c kelmar-widgetctl -a $kinds -n "__fish_seen_subcommand_from timeline snapshot \
    placeholder view render reload explain; and not __fish_seen_subcommand_from $kinds"
complete -c kelmar-widgetctl -n "__fish_seen_subcommand_from timeline snapshot control" \
    -l preview -d "As for the gallery"
complete -c kelmar-widgetctl -n "__fish_seen_subcommand_from render gallery" \
    -s o -l output -r -F -d "PNG file to write"
complete -c kelmar-widgetctl -n "__fish_seen_subcommand_from perform" \
    -l print-urls -d "Print the URLs it would open, and open none"
complete -c kelmar-widgetctl -n "__fish_seen_subcommand_from check" -F
