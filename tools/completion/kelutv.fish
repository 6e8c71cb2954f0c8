# Completion of kelutv and kelutv-simulator for fish.

function __kelutv_complete
    set -l line (commandline -cp | string collect)
    set -l program (string replace -r -- '-simulator$' '' (commandline -opc)[1])
    $program complete --line $line 2>/dev/null
end

complete -c kelutv -f -a '(__kelutv_complete)'
complete -c kelutv-simulator -f -a '(__kelutv_complete)'
