// What is shown anew at most once a frame, however much happens in between.

// Returns what asks for it.
export function oncePerFrame(show) {
  let waiting = false;
  return () => {
    if (!waiting) {
      waiting = true;
      requestAnimationFrame(() => {
        waiting = false;
        show();
      });
    }
  };
}
