# Completion of kelmar-widgets in fish.

complete -c kelmar-widgets -f
complete -c kelmar-widgets -s h -l help -d "Print what it can do and exit"
complete -c kelmar-widgets -l version -d "Print the version and exit"
complete -c kelmar-widgets -l add -x -a "{DueToday,Schedule,StudyTimer,Streak}:{small,medium,large}" \
    -d "Widgets to put on the desktop besides those that are there"
complete -c kelmar-widgets -l extension -r -F \
    -d "Key file of the extension whose widgets are shown"
complete -c kelmar-widgets -l if-arranged \
    -d "End at once where no widgets have been put on the desktop before"
complete -c kelmar-widgets -l picture -r -F -d "Draw the desktop into a file and end"
complete -c kelmar-widgets -l scheme -x -a "light dark" -d "Instead of the desktop's own"
complete -c kelmar-widgets -l mode -x -a "fullColor accented vibrant" -d "Rendering mode"
complete -c kelmar-widgets -l system-version -x -d "That the extension is told"
