// Words and texts of the page.

// "1 file", "3 files".
export function counted(count: number, what: string): string {
  return `${count} ${what}${count === 1 ? '' : 's'}`;
}

// Characters that turn the direction of text. In a name they would reorder the words and numbers around it.
const turning = /[\u202a-\u202e\u2066-\u2069\u200e\u200f\u061c]/g;

// For JSON.parse: texts keep their characters, and those that turn text are seen by their code.
export function withoutTurns(_key: string, value: unknown): unknown {
  return typeof value === 'string' ? value.replace(turning, codeOf) : value;
}

function codeOf(character: string): string {
  return `[U+${character.charCodeAt(0).toString(16).toUpperCase().padStart(4, '0')}]`;
}
