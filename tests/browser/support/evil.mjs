// A text that would run, if a page took it for markup.
export const evil = '</script><script>window.pwned=1</script><img src=x onerror="window.pwned=2">';

// The same for texts that allow no quotes.
export const evilBare = '</script><script>window.pwned=3</script><img src=x onerror=window.pwned=4>';
