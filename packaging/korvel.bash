# Completion of korvel's command line for bash.

_korvel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command='' word options='' formats=''
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            info|csv|report|graph|listing|run|batch|runs|table|changes|compliance|fit|sources|network|check|publish|atlas|explore|help-page) command=$word; break ;;
        esac
    done
    case $command in
        '') options='--application-folder --graphs --help --version' ;;
        info) options='--again --against --help --json --points --values' ;;
        csv) options='--determinands --help --limits --observed --output --reaches --statistics --targets --upstream' ;;
        report) options='--determinands --help --limits --observed --output --reaches --statistics --targets --upstream' ;;
        graph) options='--compare --from --help --interpolated --labels --level --limits --no-interpolated --no-observed --no-targets --observed --output --plot --reaches --scroll --series --size --small-text --subtitle --targets --title --to --zoom' ;;
        listing) options='--help --output' ;;
        run) options='--help --type --wait' ;;
        batch) options='--help --title --type --wait' ;;
        runs) options='--help --jobs --resume --sbatch --slurm --stop-on-failure' ;;
        table) options='--format --help --interpolated --output --reaches --series --statistics' ;;
        changes) options='--by --format --help --interpolated --output --reaches --series --statistic' ;;
        compliance) options='--by --deterioration --determinands --format --help --low-is-bad --output --reaches' ;;
        fit) options='--by --format --help --output --reaches --series --statistics' ;;
        sources) options='--at --by --determinand --format --help --output' ;;
        network) options='--format --help' ;;
        check) options='--all --format --help' ;;
        publish) options='--help --low-is-bad --output --series --title' ;;
        atlas) options='--help --low-is-bad --output --series --title' ;;
        explore) options='--help' ;;
        help-page) options='--help' ;;
    esac
    case $command in
        table) formats='csv json xlsx sqlite' ;;
        changes|compliance|fit|sources) formats='text csv json xlsx' ;;
        network|check) formats='text json' ;;
    esac
    case $previous in
        --plot) COMPREPLY=($(compgen -W 'mean percentile mean,percentile' -- "$current")); return ;;
        --level) COMPREPLY=($(compgen -W '90 95 99' -- "$current")); return ;;
        --zoom) COMPREPLY=($(compgen -W '0.25 0.5 1 2 4' -- "$current")); return ;;
        --type) COMPREPLY=($(compgen -W '0 1 2 3 4 5 6 7 8 9' -- "$current")); return ;;
        --application-folder) COMPREPLY=($(compgen -d -- "$current")); return ;;
        --format) COMPREPLY=($(compgen -W "$formats" -- "$current")); return ;;
        help-page) COMPREPLY=($(compgen -W '4 5 6 7 8 9 10' -- "$current")); return ;;
    esac
    if [[ $current == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$current"))
    elif [[ -z $command ]]; then
        COMPREPLY=($(compgen -W 'info csv report graph listing run batch runs table changes compliance fit sources network check publish atlas explore help-page' -- "$current") $(compgen -f -- "$current"))
    else
        COMPREPLY=($(compgen -f -- "$current"))
    fi
}

complete -o filenames -F _korvel korvel
