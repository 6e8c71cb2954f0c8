# Completion of kelutv-station for fish.

function __kelutv_station_unit
    set -l parts (string split -m 1 = -- (commandline -ct | string replace -r '^--unit=' ''))
    if set -q parts[2]
        for folder in (__fish_complete_directories $parts[2] '')
            echo $parts[1]=$folder
        end
    end
end

function __kelutv_station_plan
    __fish_complete_path (commandline -ct) | string match -r -- '^[^\t]*(?:/|\.toml|\.py)(?=\t|$)'
end

complete -c kelutv-station -f -a '(__kelutv_station_plan)'
complete -c kelutv-station -s h -l help -d 'Print the options'
complete -c kelutv-station -l version -d 'Print the version'
complete -c kelutv-station -l unit -x -a '(__kelutv_station_unit)' -d 'A unit, and where its service is found'
complete -c kelutv-station -s o -l output -x -a '(__fish_complete_directories)' -d 'Journal and results'
complete -c kelutv-station -l resume -d 'Go on with the run that is in the output directory'
complete -c kelutv-station -l html -r -F -d 'Write one page'
complete -c kelutv-station -l lines -d 'Print a line a result, and no screen'
complete -c kelutv-station -l check -d 'Say whether the plan can be carried out'
