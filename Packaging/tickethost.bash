# Completion for tickethost. The tool itself says which verbs and options there are.

_tickethost() {
    local word=${COMP_WORDS[COMP_CWORD]} verb= names=
    COMPREPLY=()
    [ "$COMP_CWORD" = 1 ] || verb=${COMP_WORDS[1]}
    # Rows of help begin two columns in, and what is told below them in words of another form.
    [[ $word != -* ]] || names=$("$1" help $verb 2>/dev/null | sed -nE 's/^  (-[a-zA-Z],)?(--[a-z-]+).*/\2/p')
    [[ $word == -* || -n $verb && "$verb $COMP_CWORD" != "help 2" ]] ||
        names=$("$1" help 2>/dev/null | sed -n '/^Verbs:/,/^$/s/^  \([a-z-]*\).*/\1/p')
    COMPREPLY=($(compgen -W "$names" -- "$word"))
}

# File names where there is nothing else.
complete -o default -F _tickethost tickethost
