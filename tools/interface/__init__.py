"""The public interface as data: read from the headers, the readings, the tasks and the table of error texts."""
