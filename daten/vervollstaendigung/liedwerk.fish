# Completion of liedwerk for fish.
complete -c liedwerk -l dir -xa '(__fish_complete_directories)' -d 'zeigt die Dateien der Ordner'
complete -c liedwerk -l tag -rF -d 'bearbeitet die TAGs der Dateien'
complete -c liedwerk -l hilfe -d 'zeigt die Aufrufe'
complete -c liedwerk -l version -d 'zeigt die Version'
